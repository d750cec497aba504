#include "editor/frm_rtf_htm.h"

#include <cmath>
#include <utility>

#include <QCloseEvent>
#include <QEventLoop>
#include <QMenuBar>
#include <QScopedValueRollback>

#include "capture/text_panel.h"
#include "editor/editor_bars.h"
#include "editor/editor_measures.h"
#include "editor/editor_printing.h"
#include "editor/ruler_guide.h"
#include "editor/text_commands.h"
#include "editor/typing_filter.h"
#include "layout/keep_on_screen.h"
#include "platform/qt/button_bar.h"
#include "platform/qt/normal_state.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/ruler.h"
#include "platform/qt/status_bar.h"
#include "platform/qt/table_work.h"

namespace snipdeck {

namespace {

std::int32_t Whole(double twips) {
  return static_cast<std::int32_t>(std::nearbyint(twips));
}

template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace

frm_RTF_HTM::frm_RTF_HTM(const EditorServices& services, QWidget* owner)
    : QMainWindow(owner),
      m_services(services),
      m_client(new QWidget(this)),
      picToolbar(Named(new QWidget(m_client), "picToolbar")),
      TXButtonBar1(Named(new TXButtonBar(m_client), "TXButtonBar1")),
      TXRuler1(Named(new TXRuler(m_client), "TXRuler1")),
      ThisTextCtrl(Named(new RichTextControl(m_client), "ThisTextCtrl")),
      TXStatusBar1(Named(new TXStatusBar(m_client), "TXStatusBar1")),
      m_document(new EditorDocument(*ThisTextCtrl, services.document)),
      m_geometry(*this) {
  setObjectName("frm_RTF_HTM");
  setWindowModality(Qt::ApplicationModal);
  setCentralWidget(m_client);
  setMinimumSize(PixelsFromTwips(editor_measures::kLeastWidth), PixelsFromTwips(editor_measures::kLeastHeight));
  m_document->setParent(this);
  connect(m_document, &EditorDocument::CaptionChanged, this, &QWidget::setWindowTitle);
  BuildEditorMenus(*this, *menuBar());
  BuildToolStrip(*this, *picToolbar);
  PrepareControl();
}

frm_RTF_HTM::~frm_RTF_HTM() = default;

void frm_RTF_HTM::PrepareControl() {
  ThisTextCtrl->setAccessibleName(tr("Text of the editor"));
  ThisTextCtrl->SetPasteSource(&m_services.clipboard);
  ThisTextCtrl->SetRulerHandle(TXRuler1->WindowHandle());
  ThisTextCtrl->SetButtonBarHandle(TXButtonBar1->WindowHandle());
  ThisTextCtrl->SetStatusBarHandle(TXStatusBar1->WindowHandle());
  TXStatusBar1->SetFieldLabels({tr("Line "), tr("Col "), tr("Section "), tr("Page ")});
  connect(ThisTextCtrl, &QTextEdit::textChanged, this,
          [this] { ShowNewBlankLine(ThisTextCtrl->AsItStands().textCursor()); });
  new RulerGuide(*TXRuler1, *ThisTextCtrl);
  new TypingFilter(*ThisTextCtrl, {.run = [this](EditorHandler handler) { (this->*handler)(); },
                                   .markChanged = [this] { m_document->MarkChanged(); },
                                   .isMenuKey = [this](const QKeyEvent& event) { return HasMenuKey(event); }});
}

bool frm_RTF_HTM::HasMenuKey(const QKeyEvent& event) const {
  const QKeySequence pressed(event.keyCombination());
  const QList<QAction*> actions = findChildren<QAction*>();
  return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
    return !action->shortcut().isEmpty() && action->shortcut() == pressed;
  });
}

void frm_RTF_HTM::ShowModal(OpenMode mode, const QString& path) {
  Form_Load([&] { m_document->Start(mode, path); });
}

void frm_RTF_HTM::ShowRecovered(const QString& path, const std::function<void()>& fill) {
  Form_Load([&] { m_document->Resume(path, fill); });
}

void frm_RTF_HTM::Form_Load(const std::function<void()>& start) {
  if (m_shown) return;
  QEventLoop loop;
  const QScopedValueRollback shown(m_shown, &loop);
  PlaceAsSaved();
  start();
  show();
  ThisTextCtrl->setFocus();
  loop.exec();
}

void frm_RTF_HTM::PlaceAsSaved() {
  const Settings& saved = m_services.settings;
  m_centresWhenActive = saved.editorWidth <= 0 || saved.editorHeight <= 0;
  if (m_centresWhenActive) return mnuCentreOnScreen_Click();
  m_geometry.SetLeft(saved.editorLeft);
  m_geometry.SetTop(saved.editorTop);
  m_geometry.SetWidth(saved.editorWidth);
  m_geometry.SetHeight(saved.editorHeight);
  KeepReachable(m_services.screen.Area(), m_geometry);
}

void frm_RTF_HTM::KeepPlacement() {
  Settings& settings = m_services.settings;
  settings.editorLeft = Whole(m_geometry.Left());
  settings.editorTop = Whole(m_geometry.Top());
  settings.editorWidth = Whole(m_geometry.Width());
  settings.editorHeight = Whole(m_geometry.Height());
}

bool frm_RTF_HTM::Form_QueryUnload() {
  if (m_document->IsSaving() && !m_isEnding) return false;
  const bool goesOn = m_isEnding || m_document->ConfirmDiscard();
  KeepPlacement();
  return goesOn;
}

void frm_RTF_HTM::Form_Resize() {
  if (isMinimized()) return;
  using namespace editor_measures;
  const double width = TwipsFromPixels(m_client->width());
  const double height = TwipsFromPixels(m_client->height());
  ApplyRect(*picToolbar, {0, 0, width, kToolStripHeight});
  ApplyRect(*TXButtonBar1, {0, kButtonBarTop, width, kButtonBarHeight});
  ApplyRect(*TXRuler1, {0, kRulerTop, width, kRulerHeight});
  ApplyRect(*ThisTextCtrl, PlaceOfText(width, height, ThisTextCtrl->ViewMode()));
  ApplyRect(*TXStatusBar1, {0, height - kStatusBarHeight, width, kStatusBarHeight});
}

void frm_RTF_HTM::closeEvent(QCloseEvent* event) {
  event->setAccepted(Form_QueryUnload());
  if (!event->isAccepted()) return;
  if (m_shown) m_shown->quit();
  if (!m_isEnding) emit Closed();
}

void frm_RTF_HTM::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    m_geometry.FitFrame();
    // Before, the sizes of the frames were not known.
    if (std::exchange(m_centresWhenActive, false)) mnuCentreOnScreen_Click();
  }
}

void frm_RTF_HTM::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Form_Resize();
}

void frm_RTF_HTM::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  Form_Resize();
}

void frm_RTF_HTM::mnuOpenFile_Click() {
  m_document->Open();
}

void frm_RTF_HTM::mnuNewFile_Click() {
  m_document->New();
}

void frm_RTF_HTM::mnuSave_Click() {
  m_document->Save();
}

void frm_RTF_HTM::mnuSaveAs_Click() {
  m_document->SaveAs();
}

void frm_RTF_HTM::mnuFile_Explorer_Click() {
  QString current;
  m_services.programs.ExploreFolder(current, winId());
}

void frm_RTF_HTM::mnuFile_Print_Click() {
  EditorPrinting(*ThisTextCtrl, m_services.printDialog, m_services.document.messages)
      .Print(m_document->FileName(), [this] { mnuView_PageView_Click(); });
}

void frm_RTF_HTM::mnuExit_Click() {
  close();
}

void frm_RTF_HTM::mnuEdit_Find_Click() {
  ThisTextCtrl->FindReplaceDialog(1);
}

void frm_RTF_HTM::mnuEdit_Replace_Click() {
  ThisTextCtrl->FindReplaceDialog(2);
}

void frm_RTF_HTM::mnuEdit_AllFonts_Click() {
  ThisTextCtrl->FontDialog();
}

void frm_RTF_HTM::mnuEdit_FormatInsert_Click() {
  ThisTextCtrl->InsertTableDialog();
}

void frm_RTF_HTM::mnuEdit_FormatTable_Click() {
  FormatTable(*ThisTextCtrl, m_services.document.messages);
  ThisTextCtrl->setFocus();
}

void frm_RTF_HTM::mnuEdit_TextBox_Click() {
  InsertTextBox(*ThisTextCtrl);
}

void frm_RTF_HTM::mnuEdit_Paragraph_Click() {
  ThisTextCtrl->ParagraphDialog();
  ThisTextCtrl->setFocus();
}

void frm_RTF_HTM::mnuEdit_Bullets_Click() {
  ThisTextCtrl->BulletsDialog();
  ThisTextCtrl->setFocus();
}

void frm_RTF_HTM::mnuCentreOnScreen_Click() {
  if (isMaximized()) BringToNormalState(*this);
  const WindowGeometry& main = m_services.mainWindow;
  const TwipRect place = CentredOver({main.Left(), main.Top(), main.Width(), main.Height()});
  m_geometry.SetHeight(place.height);
  m_geometry.SetWidth(place.width);
  m_geometry.SetTop(place.top);
  m_geometry.SetLeft(place.left);
}

void frm_RTF_HTM::mnuView_PageSettings_Click() {
  ThisTextCtrl->PageSetupDialog(0);
}

void frm_RTF_HTM::mnuView_Formatting_Click() {
  ThisTextCtrl->SetShowFormatting(!ThisTextCtrl->ShowFormatting());
}

void frm_RTF_HTM::mnuView_PageView_Click() {
  if (ThisTextCtrl->ViewMode() <= 0) {
    ThisTextCtrl->SetPageDisplayOption(0);
    ThisTextCtrl->SetViewMode(2);
  } else if (ThisTextCtrl->ViewMode() == 2) {
    ThisTextCtrl->SetViewMode(0);
  }
  Form_Resize();
}

void frm_RTF_HTM::UseClipboard(int action) {
  constexpr int kCopy = 2;
  ThisTextCtrl->setFocus();
  ThisTextCtrl->ClipboardAction(action);
  if (action != kCopy) m_document->MarkChanged();
}

void frm_RTF_HTM::cmdCutButton_Click() {
  UseClipboard(1);
}

void frm_RTF_HTM::cmdCopyButton_Click() {
  UseClipboard(2);
}

void frm_RTF_HTM::cmdPasteButton_Click() {
  UseClipboard(3);
}

void frm_RTF_HTM::SelectAll() {
  ThisTextCtrl->SetSelStart(0);
  ThisTextCtrl->SetSelLength(-1);
}

void frm_RTF_HTM::SwapCharacters() {
  if (snipdeck::SwapCharacters(*ThisTextCtrl)) m_document->MarkChanged();
  ThisTextCtrl->setFocus();
}

void frm_RTF_HTM::PlainCharacters() {
  snipdeck::PlainCharacters(*ThisTextCtrl);
}

void frm_RTF_HTM::ToggleBold() {
  snipdeck::ToggleBold(*ThisTextCtrl);
}

void frm_RTF_HTM::ToggleItalic() {
  snipdeck::ToggleItalic(*ThisTextCtrl);
}

void frm_RTF_HTM::ToggleUnderline() {
  snipdeck::ToggleUnderline(*ThisTextCtrl);
}

void frm_RTF_HTM::GotoDesktop() {
  m_services.programs.GotoDesktop();
}

void frm_RTF_HTM::StartMiniTrawler() {
  m_services.programs.StartMiniTrawler({});
}

}  // namespace snipdeck

#include "app/frm_snipdeck.h"

#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QPixmapCache>
#include <QResizeEvent>
#include <QTimer>

#include "app/menu_builder.h"
#include "app/program_folder.h"
#include "dialogs/frm_settings.h"
#include "layout/main_window_layout.h"
#include "layout/place_beside.h"
#include "navigation/sidebar_rows.h"
#include "platform/units.h"

namespace snipdeck {

namespace {

// In kB. Styles keep a picture for every length that a scroll bar has had, and the boxes' bars change with each copy.
constexpr int kPictureCache = 1024;

constexpr TwipRect kFormatsLabelPlace{8880, 210, 735, 195};
constexpr TwipRect kFormatLabelPlace{9720, 180, 1695, 255};
constexpr int kLabelGap = 8;  // pixels

// Wider and higher than its place where the font needs it, in the same line.
void FitLabel(QLabel& label, const TwipRect& place, const QString& longest) {
  ApplyRect(label, place);
  const QFontMetrics font = label.fontMetrics();
  const QPoint middle = label.geometry().center();
  label.resize(label.size().expandedTo({font.horizontalAdvance(longest), font.height()}));
  label.move(label.x(), middle.y() - (label.height() - 1) / 2);
}

}  // namespace

frmSnipdeck::frmSnipdeck(const MainWindowServices& services)
    : m_services(services),
      m_client(new QWidget(this)),
      m_topRow(BuildTopRow(*this, *m_client)),
      m_boxes(new BoxSet(*m_client, services.messages)),
      m_sidebar(new Sidebar(*m_client, m_settings, services.messages, Host())),
      m_focusSwitch(*m_boxes, *m_sidebar),
      m_programs({services.files, services.shell, services.windows, services.messages},
                 ProgramSearch(services.files, services.ownFolder, QDir::separator()), m_settings),
      m_capture(*m_boxes, services.clipboard, m_settings.startWithCumulative),
      m_interaction(*m_boxes, services.messages, m_settings.storageFolder, HostOfBoxes()),
      m_views(*m_boxes, services.messages),
      m_clipboardWindows(*m_boxes, ServicesOfClipboard(), services.screen, *this),
      m_settingsFile(FileInFolder(services.folder, QString::fromLatin1(kSettingsFileName)), m_settings,
                     services.messages),
      m_longWork(services.ctlClipboard1, services.longWork),
      m_storedBoxes(*m_boxes, services.messages, m_longWork),
      m_storage(m_storedBoxes, services.messages, m_settings.storageFolder),
      m_files(*m_boxes, m_settings, services.fileDialogs, services.messages, m_longWork),
      m_recovery(*m_boxes, services.clipboard, FileInFolder(services.folder, QStringLiteral("QM_Snipdeck.recovery"))),
      m_geometry(*this),
      m_looks(*this, m_settings, services.fontColourDialogs, services.messages),
      m_windowSize({*this, m_geometry, services.screen, m_settings, m_looks, [this] { Form_Resize(); }}),
      m_changedDocument(
          {m_settings, services.messages, services.clipboardWriter, services.shell, m_programs, m_looks}),
      m_editor(ServicesOfEditor(), *this,
               FileInFolder(services.folder, QStringLiteral("QM_Snipdeck.editor-recovery"))),
      m_startUp(Parts(), services.folder, services.firstSettings),
      m_shutDown(Parts()) {
  setObjectName("frmSnipdeck");
  m_boxes->SetPasteSource(services.clipboard);
  QPixmapCache::setCacheLimit(kPictureCache);
  setWindowTitle(QString::fromLatin1(kProgramTitle));
  setCentralWidget(m_client);
  BuildMenus(*this, *menuBar());
  PlaceFixedControls();
  SetTabOrder();
  KeepMinimumSize();
}

frmSnipdeck::~frmSnipdeck() = default;

MainWindowParts frmSnipdeck::Parts() {
  return {*this,
          *m_boxes,
          m_views,
          m_settings,
          m_settingsFile,
          m_storage,
          m_recovery,
          m_geometry,
          m_services.screen,
          m_services.ctlClipboard1,
          m_services.clipboardWriter,
          m_services.messages};
}

void frmSnipdeck::Form_Load() {
  m_startUp.Steps().applyButtonColour = [this] { m_looks.ApplyButtonColour(); };
  m_startUp.Steps().applyControlFonts = [this] { ApplyControlFont(); };
  const auto loadContentsFile = [this] { m_files.Contents().LoadFileIntoCumulative(0); };
  m_startUp.Steps().loadContentsFile = loadContentsFile;
  m_views.SetLoadContentsFile(loadContentsFile);
  m_startUp.Steps().buildSidebar = [this] { BuildSidebar(); };
  m_startUp.Load();
  m_editor.TakeOverLost();
}

SidebarHost frmSnipdeck::Host() {
  return {.runCommand = [this](int row) { RunSidebarRow(row); },
          .layOut = [this] { Form_Resize(); },
          .switchFocus = [this] { m_focusSwitch.SwitchFocus(); }};
}

BoxHost frmSnipdeck::HostOfBoxes() {
  return {.switchFocus = [this] { m_focusSwitch.SwitchFocus(); },
          .showClipboard =
              [this] {
                if (const CommandHandler handler = EntryCommand("mnuClipStyles")) (this->*handler)();
              },
          .nextSidebarWidth = [this] { mnuViewSideBarWidth_Click(); },
          .placeLeft =
              [this](std::int16_t fill) {
                PlaceLeftOf(m_services.screen.Area(), m_services.messages, m_geometry, m_geometry, fill);
              },
          .placeRight =
              [this](std::int16_t fill) {
                PlaceRightOf(m_services.screen.Area(), m_services.messages, m_geometry, m_geometry, fill);
              }};
}

ClipboardWindowServices frmSnipdeck::ServicesOfClipboard() {
  return {.access = m_services.clipboardAccess,
          .functions = m_services.clipboardFunctions,
          .writer = m_services.clipboardWriter,
          .pasteSource = m_services.clipboard,
          .messages = m_services.messages,
          .dialogs = m_services.fileDialogs,
          .settings = m_settings,
          .keepOnScreen = {}};
}

EditorServices frmSnipdeck::ServicesOfEditor() {
  return {.document = {m_services.fileDialogs, m_services.messages, m_changedDocument, m_savingNotice, m_longWork},
          .printDialog = m_services.printDialog,
          .clipboard = m_services.clipboard,
          .programs = m_programs,
          .settings = m_settings,
          .screen = m_services.screen,
          .mainWindow = m_geometry};
}

void frmSnipdeck::BuildSidebar() {
  m_sidebar->Fill();
  m_sidebar->SetHandPointer(LoadHandPointer(m_services.folder));
  for (int row = 1; row <= kSidebarRowCount; ++row) m_sidebar->SetRowEnabled(row, SidebarCommand(row));
}

void frmSnipdeck::RunSidebarRow(int row) {
  if (const CommandHandler handler = SidebarCommand(row)) (this->*handler)();
}

void frmSnipdeck::ApplyControlFont() {
  m_looks.ApplyControlFont(*this);
  if (m_settings.useControlFonts != 1) return;
  QLabel& caption = *m_boxes->lblFormats;
  QLabel& kind = *m_boxes->lblFormat;
  FitLabel(caption, kFormatsLabelPlace, caption.text());
  FitLabel(kind, kFormatLabelPlace, tr("file/folder names"));
  kind.move(std::max(kind.x(), caption.geometry().right() + kLabelGap), kind.y());
}

void frmSnipdeck::PlaceFixedControls() {
  ApplyRect(*m_boxes->lblFormats, kFormatsLabelPlace);
  ApplyRect(*m_boxes->lblFormat, kFormatLabelPlace);
  m_boxes->Box(1).move(PixelsFromTwips(MainWindowLayout::kGridLeft),
                       PixelsFromTwips(MainWindowLayout::kBoxOneFirstTop));
}

void frmSnipdeck::SetTabOrder() {
  setTabOrder(m_topRow.back(), &m_sidebar->Grid());
  setTabOrder(&m_sidebar->Grid(), &m_boxes->Box(1));
  for (int n = 1; n < kBoxCount; ++n) setTabOrder(&m_boxes->Box(n), &m_boxes->Box(n + 1));
  for (int n = 1; n <= kBoxCount; ++n) m_boxes->Box(n).installEventFilter(this);
  m_boxes->TXTextControl1().installEventFilter(this);
  m_boxes->TXTextControl2().installEventFilter(this);
}

void frmSnipdeck::ctlClipboard1_Changed() {
  m_recovery.WhileCapturing([this] { m_files.WhileCapturing([this] { m_capture.ProcessClipboard(); }); });
}

void frmSnipdeck::mnuAllInOne_Click() {
  m_views.ShowAllInOne();
}

void frmSnipdeck::mnuClipStyles_Click() {
  m_clipboardWindows.ViewAndPaste();
}

void frmSnipdeck::mnuCopyOneBox_Click() {
  m_views.CopyOneBox();
}

void frmSnipdeck::mnuEmpty_Click() {
  m_views.EmptyAllBoxes();
}

void frmSnipdeck::mnuSettings_Click() {
  frmSettings({m_settings, *m_boxes, *m_sidebar, m_looks, m_services.fontColourDialogs, m_services.fileDialogs}, this)
      .exec();
}

void frmSnipdeck::mnuNewTextFile_Click() {
  m_editor.NewTextFile();
}

void frmSnipdeck::mnuTopicalNotes_Click() {
  m_editor.OpenTopicalNotes();
}

void frmSnipdeck::mnuHelp_Click() {
  m_interaction.ShowBriefHelp();
}

void frmSnipdeck::mnuButtonColour_Click() {
  m_looks.ChooseButtonColour();
}

void frmSnipdeck::mnuContrlFont_Click() {
  m_looks.ChooseControlFont();
}

void frmSnipdeck::mnuCumulative_Click() {
  m_views.ToggleCumulative();
}

void frmSnipdeck::mnuExit_Click() {
  close();
}

void frmSnipdeck::mnuAppend_Click() {
  m_files.Export().AppendToFile();
}

void frmSnipdeck::mnuFolder_Click() {
  const QString chosen = ChooseStorageFolder(m_storedBoxes, m_services.fileDialogs, m_settings.storageFolder);
  if (chosen.isEmpty()) return;
  m_settings.storageFolder = chosen;
  setWindowTitle(chosen);
}

void frmSnipdeck::mnuIntoClipboard_Click() {
  m_files.Contents().Get();
}

void frmSnipdeck::mnuLoadBoxes_Click() {
  m_storage.LoadAll();
}

void frmSnipdeck::mnuSaveAs_Click() {
  m_files.Export().SaveLargeView();
}

void frmSnipdeck::mnuSaveText_Click() {
  m_files.Export().SaveCumulative();
}

void frmSnipdeck::mnuSaveTextBoxes_Click() {
  m_storage.SaveAll();
}

void frmSnipdeck::mnuShowAllTypes_Click() {
  m_clipboardWindows.ShowAllTypes();
}

void frmSnipdeck::mnuScreenSize_Click() {
  m_windowSize.Run();
}

void frmSnipdeck::mnuViewBoxLarge_Click() {
  m_interaction.ToggleFullScreen();
}

void frmSnipdeck::mnuExplorer_Click() {
  m_programs.ExploreStorage();
}

void frmSnipdeck::mnuTrawler_Click() {
  m_programs.ShowStorageInTrawler();
}

void frmSnipdeck::mnuView_Jotter_Click() {
  m_programs.StartJotter();
}

void frmSnipdeck::mnuView_SideBar_Click() {
  m_sidebar->ToggleShown();
}

void frmSnipdeck::mnuViewSideBarWidth_Click() {
  m_sidebar->ToggleSideBarWidth(1);
}

void frmSnipdeck::cmdDesktop_Click() {
  m_programs.GotoDesktop();
}

void frmSnipdeck::BrowserRow_Click() {
  m_programs.StartBrowser();
}

void frmSnipdeck::ExplorerRow_Click() {
  m_programs.ExploreCurrent();
}

void frmSnipdeck::TrawlerRow_Click() {
  m_programs.ShowCurrentInTrawler();
}

void frmSnipdeck::Form_Activate() {
  m_programs.SetMainWindow(winId());
  KeepMinimumSize();  // with the frame that the window manager has given by now
  m_geometry.FitFrame();
  m_sessionIsEnding = false;
  m_startUp.Activated([this] { ctlClipboard1_Changed(); });
  QTimer::singleShot(0, this, [this] { m_editor.AskAtStart(); });
}

void frmSnipdeck::Form_Resize() {
  KeepMinimumSize();
  const double width = TwipsFromPixels(m_client->width());
  const double height = TwipsFromPixels(m_client->height());
  if (m_sidebar->IsShown()) m_sidebar->ToggleSideBarWidth(0);
  m_sidebar->Place(MainWindowLayout::SidebarGridHeight(height));
  const double left = MainWindowLayout::GridLeft(m_sidebar->IsShown(), m_sidebar->Width());
  const auto placement = MainWindowLayout::Place(width, height, left, TwipsFromPixels(m_boxes->Box(1).y()));
  for (int n = 1; n <= kBoxCount; ++n) ApplyRect(m_boxes->Box(n), placement.boxes[static_cast<size_t>(n - 1)]);
  m_boxes->Frame1->Apply(placement.frame1);
  m_boxes->Frame2->Apply(placement.frame2);
}

void frmSnipdeck::KeepMinimumSize() {
  const QSize frame = frameGeometry().size() - size();
  setMinimumSize(PixelsFromTwips(MainWindowLayout::kMinOuterWidth) - frame.width(),
                 PixelsFromTwips(MainWindowLayout::kMinOuterHeight) - frame.height());
}

void frmSnipdeck::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Form_Activate();
}

void frmSnipdeck::closeEvent(QCloseEvent* event) {
  event->setAccepted(Form_QueryUnload());
}

bool frmSnipdeck::Form_QueryUnload() {
  if (m_sessionIsEnding) EndForced();
  return m_shutDown.QueryUnload();
}

void frmSnipdeck::SessionEnding() {
  // Until the window is used again, a close belongs to the end of the session.
  m_sessionIsEnding = true;
  m_editor.KeepForSessionEnd();
  m_shutDown.KeepForSessionEnd();
}

void frmSnipdeck::EndForced() {
  m_editor.EndForced();
  m_shutDown.EndForced();
}

bool frmSnipdeck::eventFilter(QObject* watched, QEvent* event) {
  // The text controls claim keys of their own, such as Ctrl+Y, before menus see them; the menus' keys come first.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const QKeySequence pressed(key->keyCombination());
    for (const QAction* action : findChildren<QAction*>()) {
      if (!action->shortcut().isEmpty() && action->shortcut() == pressed) {
        event->ignore();
        return true;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmSnipdeck::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Form_Resize();
}

void frmSnipdeck::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  Form_Resize();
}

}  // namespace snipdeck

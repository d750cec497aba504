#include "clipformats/frm_view_and_paste.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include "clipformats/basic_text.h"
#include "platform/qt/command_button.h"
#include "platform/units.h"
#include "richtext/clipboard_text.h"
#include "storage/busy_pointer.h"
#include "storage/file_types.h"

namespace snipdeck {

namespace {

constexpr double kSmallestWidth = 5856;
constexpr double kSmallestHeight = 4000;
constexpr TwipPlace kStylePlace{3240, 120, 1215, 300};
constexpr double kViewLeft = 120;
constexpr double kViewTop = 560;
constexpr double kMargin = 120;
constexpr int kStyles = 3;
constexpr int kSettleMs = 500;

constexpr WindowCommand kExit{"cmdExit", "Exit_32x32", "Exit", 120, 600, "mnuExit", "E&xit"};
constexpr WindowCommand kSave{"cmdSaveContents", "_SaveAs_32x32-green", "Save contents to disk", 840, 600,
                              "mnuSaveContents", "&Save contents"};
constexpr WindowCommand kToggle{"cmdBasicRTF", "text-styles", "Toggle text styles", 1560,
                                720,           "mnuToggle",   "&Toggle text styles"};
constexpr WindowCommand kAllTypes{"cmdAllTypes", "clipboard-types", "View all types of clipboard contents", 2400, 720,
                                  "mnuAllTypes", "&All types"};
constexpr WindowCommand kRetrieve{"cmdRetrieve", "retrieve", "Retrieve", 4560, 735, "mnuRetrieve", "&Retrieve"};

KeptPlacement KeptIn(Settings& settings) {
  return {settings.pasteLeft, settings.pasteTop, settings.pasteWidth, settings.pasteHeight};
}

void LetEventsRun() {
  QCoreApplication::processEvents();
}

void LetItSettle() {
  QEventLoop loop;
  QTimer::singleShot(kSettleMs, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

frmViewAndPaste::frmViewAndPaste(const ClipboardWindowServices& services, const Retrieval& retrieval,
                                 std::function<void(QWidget*)> showAllTypes, QWidget* parent)
    : ClipboardWindow(QStringLiteral("frmViewAndPaste"), KeptIn(services.settings), parent),
      m_services(services),
      m_retrieval(retrieval),
      m_showAllTypes(std::move(showAllTypes)),
      Label1(new QLabel(&Client())),
      TXTextControl1(new RichTextControl(&Client())),
      RichTextBox1(new RichTextControl(&Client())),
      Text1(new PlainTextField(&Client())) {
  setWindowModality(Qt::WindowModal);
  AddCommands();
  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setAccessibleName(tr("Text style"));
  Label1->setAlignment(Qt::AlignCenter);
  Label1->setStyleSheet(QStringLiteral("background: white; color: black"));
  Apply(*Label1, kStylePlace);
  PrepareView(*TXTextControl1, "TXTextControl1", tr("Clipboard text, all formats"));
  PrepareView(*RichTextBox1, "RichTextBox1", tr("Clipboard text, basic formats"));
  PrepareView(*Text1, "Text1", tr("Clipboard text, no formats"));
  Form_Load();
}

void frmViewAndPaste::AddCommands() {
  AddCommand(kRetrieve, [this] { cmdRetrieve_Click(); });
  cmdBasicRTF = AddCommand(kToggle, [this] { cmdBasicRTF_Click(); });
  AddCommand(kSave, [this] { cmdSaveContents_Click(); });
  AddCommand(kAllTypes, [this] { cmdAllTypes_Click(); });
  AddCommand(kExit, [this] { cmdExit_Click(); });
  SetTabOrder();
  // Its keys work after a click, too.
  cmdBasicRTF->setFocusPolicy(Qt::StrongFocus);
  cmdBasicRTF->installEventFilter(this);
}

void frmViewAndPaste::PrepareView(RichTextControl& view, const char* name, const QString& accessibleName) {
  view.setObjectName(QString::fromLatin1(name));
  view.setAccessibleName(accessibleName);
  view.SetPasteSource(&m_services.pasteSource);
  view.setTabChangesFocus(true);
  Apply(view, {kViewLeft, kViewTop, -1, -1});
}

void frmViewAndPaste::Form_Load() {
  m_retrieval.dialogResult = 0;
  ApplyTextStyle();
  m_retrieval.WhichTXControl.SetText(QString());
  SetSmallest(kSmallestWidth, kSmallestHeight);
  Place(m_services.keepOnScreen);
}

void frmViewAndPaste::Form_Activate() {
  // Handling events may bring it here again.
  if (m_isActivating) return;
  const QScopedValueRollback activating(m_isActivating, true);
  LetEventsRun();
  if (TXTextControl1->isVisible()) TXTextControl1->setFocus();
  if (m_isFirstShow) {
    LetEventsRun();
    ReadClipboard();
    m_isFirstShow = false;
  }
  ApplyTextStyle();
}

void frmViewAndPaste::ReadClipboard() {
  for (RichTextControl* view : {TXTextControl1, RichTextBox1, static_cast<RichTextControl*>(Text1)}) {
    view->SetText(QString());
  }
  const Result<RichTextPayload> payload = m_services.access.RichText();
  if (const auto text = payload ? FormattedText(payload.Value()) : std::nullopt) {
    ShowRichText(*text);
  } else if (m_services.access.HasFormat(kFormatText)) {
    ShowPlainText();
  }
  if (TXTextControl1->Text().isEmpty()) ShowKindOnly();
}

void frmViewAndPaste::ShowRichText(const RichText& text) {
  LetEventsRun();
  TXTextControl1->SetSelRichText(text);
  LetEventsRun();
  RichTextBox1->SetSelRichText(BasicText(text));
  LetEventsRun();
  if (const Result<QString> plain = m_services.access.Text()) Text1->SetText(plain.Value());
}

void frmViewAndPaste::ShowPlainText() {
  const Result<QString> text = m_services.access.Text();
  if (!text) return;
  for (RichTextControl* view : {TXTextControl1, RichTextBox1, static_cast<RichTextControl*>(Text1)}) {
    LetEventsRun();
    view->SetSelText(text.Value());
  }
}

void frmViewAndPaste::ShowKindOnly() {
  QString kind;
  if (m_services.access.HasFormat(kFormatBitmap)) {
    kind = QStringLiteral(" an image ");
  } else if (m_services.access.HasFormat(kFormatFileList)) {
    kind = QStringLiteral(" a list of file/folder names ");
  }
  TXTextControl1->SetText(QStringLiteral("\r\nWindows clipboard contains ") + kind +
                          QStringLiteral("\r\n\r\nClick on \"All types\" above to view.\r\n"));
}

void frmViewAndPaste::ApplyTextStyle() {
  static constexpr const char* names[] = {"full RTF", "basic RTF", "plain text"};
  if (m_style < 0 || m_style >= kStyles) m_style = 0;
  RichTextControl* views[] = {TXTextControl1, RichTextBox1, Text1};
  // The one that is shown comes first, so that the keyboard stays in the text.
  const bool textHasFocus = views[0]->hasFocus() || views[1]->hasFocus() || views[2]->hasFocus();
  views[m_style]->setVisible(true);
  if (textHasFocus) views[m_style]->setFocus();
  for (int style = 0; style < kStyles; ++style) views[style]->setVisible(style == m_style);
  Label1->setText(QString::fromLatin1(names[m_style]));
  Label1->setAccessibleDescription(Label1->text());
}

void frmViewAndPaste::Form_Resize() {
  const TwipPlace place{kViewLeft, kViewTop, ScaleWidth() - kViewLeft - kMargin, ScaleHeight() - kViewTop - kMargin};
  Apply(*TXTextControl1, place);
  Apply(*RichTextBox1, place);
  Apply(*Text1, place);
}

void frmViewAndPaste::cmdBasicRTF_Click() {
  m_style = (m_style + 1) % kStyles;
  ApplyTextStyle();
}

void frmViewAndPaste::cmdRetrieve_Click() {
  StagedText& staged = m_retrieval.WhichTXControl;
  if (m_style == 0) {
    const bool isSelected = TXTextControl1->SelLength() > 0;
    staged.SetSelRtf(isSelected ? TXTextControl1->SelRichText() : RichText::FromDocument(*TXTextControl1->document()));
  } else if (m_style == 1) {
    staged.SetSelRtf(RichText::FromDocument(*RichTextBox1->document()));
  } else {
    staged.SetText(Text1->Text());
  }
  m_retrieval.dialogResult = 1;
  close();
}

void frmViewAndPaste::cmdAllTypes_Click() {
  m_showAllTypes(this);
}

void frmViewAndPaste::cmdSaveContents_Click() {
  const QString path =
      m_services.dialogs.SaveFile({.title = QStringLiteral("Save clipboard contents to file"),
                                   .fileName = {},
                                   .filters = {{QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}},
                                   .defaultExtension = {}});
  if (path.isEmpty()) return;
  const BusyPointer busy;
  TXTextControl1->SaveFile(path, 0, SaveFormatForName(path));
  LetItSettle();
}

void frmViewAndPaste::cmdExit_Click() {
  close();
}

bool frmViewAndPaste::eventFilter(QObject* watched, QEvent* event) {
  if (watched == cmdBasicRTF && event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() == Qt::Key_F12 && key.modifiers() == Qt::NoModifier) {
      cmdRetrieve_Click();
      return true;
    }
  }
  return ClipboardWindow::eventFilter(watched, event);
}

}  // namespace snipdeck

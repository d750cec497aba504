#include "clipformats/frm_show_clip.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include "platform/qt/command_button.h"
#include "platform/units.h"
#include "richtext/clipboard_text.h"

namespace snipdeck {

namespace {

constexpr TwipPlace kFormatPlace{2520, 120, 1695, 255};
constexpr double kFrameLeft = 120;
constexpr double kFrameTop = 480;
constexpr double kViewLeft = 120;
constexpr double kViewTop = 240;
constexpr double kMargin = 80;

constexpr WindowCommand kExit{"cmdExit", "Exit_32x32", "Exit", 120, 600, "mnuExit", "E&xit"};
constexpr WindowCommand kSelectAll{"cmdSelectAll", "select-all", "Select all", 840, 600, "mnuSelectAll", "&Select all"};
constexpr WindowCommand kCopy{"cmdCopy", "copy-box", "Copy text to Windows clipboard", 1560, 720, "mnuCopy", "&Copy"};
constexpr WindowCommand kFormats{"cmdFormats", "format-list", "List of all formats", 4260,
                                 460,          "mnuFormats",  "List of all &formats"};

KeptPlacement KeptIn(Settings& settings) {
  return {settings.clipboardLeft, settings.clipboardTop, settings.clipboardWidth, settings.clipboardHeight};
}

}  // namespace

frmShowClip::frmShowClip(const ClipboardWindowServices& services, QWidget* parent)
    : ClipboardWindow(QStringLiteral("frmShowClip"), KeptIn(services.settings), parent),
      m_services(services),
      lblFormat(new QLabel(&Client())),
      Frame1(new QWidget(&Client())),
      txtView(new RichTextControl(Frame1)),
      picView(new PictureView(Frame1)),
      lstFormats(new FormatList(
          services.functions, [this]() -> cCustomClipboard& { return Clipboard(); }, &Client())) {
  setWindowFlags(Qt::Window);
  AddCommands();
  lblFormat->setObjectName(QStringLiteral("lblFormat"));
  lblFormat->setAccessibleName(tr("Format"));
  Apply(*lblFormat, kFormatPlace);
  Frame1->setObjectName(QStringLiteral("Frame1"));
  txtView->setObjectName(QStringLiteral("txtView"));
  txtView->setAccessibleName(tr("Contents of the clipboard"));
  txtView->SetPasteSource(&services.pasteSource);
  txtView->installEventFilter(this);
  picView->setObjectName(QStringLiteral("picView"));
  picView->hide();
  lstFormats->hide();
  Apply(*Frame1, {kFrameLeft, kFrameTop, -1, -1});
  Apply(*txtView, {kViewLeft, kViewTop, -1, -1});
  Apply(*picView, {kViewLeft, kViewTop, -1, -1});
  txtView->setFocus();
  Form_Load();
}

void frmShowClip::AddCommands() {
  AddCommand(kSelectAll, [this] { cmdSelectAll_Click(); });
  AddCommand(kCopy, [this] { cmdCopy_Click(); });
  AddCommand(kFormats, [this] { cmdFormats_Click(); });
  AddCommand(kExit, [this] { cmdExit_Click(); });
  SetTabOrder();
}

cCustomClipboard& frmShowClip::Clipboard() {
  if (!m_clipboard) m_clipboard = std::make_unique<cCustomClipboard>(m_services.functions, m_services.access);
  return *m_clipboard;
}

void frmShowClip::Form_Load() {
  Place(m_services.keepOnScreen);
  ClipboardAccess& clipboard = m_services.access;
  if (ShowRichText() || ShowPlainText()) {
    picView->hide();
  } else if (clipboard.HasFormat(kFormatBitmap)) {
    ShowPicture();
  } else if (clipboard.HasFormat(kFormatFileList)) {
    ShowFileNames();
  }
  lblFormat->setAccessibleDescription(lblFormat->text());
}

bool frmShowClip::ShowRichText() {
  const Result<RichTextPayload> payload = m_services.access.RichText();
  const auto text = payload ? FormattedText(payload.Value()) : std::nullopt;
  if (!text) return false;
  lblFormat->setText(QStringLiteral("RTF text"));
  txtView->SetSelRichText(*text);
  return true;
}

bool frmShowClip::ShowPlainText() {
  if (!m_services.access.HasFormat(kFormatText)) return false;
  lblFormat->setText(QStringLiteral("plain text"));
  if (const Result<QString> text = m_services.access.Text()) txtView->SetText(text.Value());
  return true;
}

void frmShowClip::ShowPicture() {
  lblFormat->setText(QStringLiteral("image"));
  picView->setGeometry(txtView->geometry());
  txtView->hide();
  picView->show();
  const Result<EncodedPicture> picture = m_services.access.Picture();
  picture ? picView->SetPicture(picture.Value()) : picView->SetNotice(picture.Error().text);
}

void frmShowClip::ShowFileNames() {
  lblFormat->setText(QStringLiteral("file/folder names"));
  if (!Clipboard().ClipboardOpen(winId())) return;
  QString text;
  StringArray names;
  std::int32_t count = 0;
  if (Clipboard().GetFileList(names, count)) {
    for (std::int32_t i = 1; i <= count; ++i) text += names.At(i) + QStringLiteral("\r\n");
  }
  txtView->SetText(text);
  Clipboard().ClipboardClose();
}

void frmShowClip::Form_Activate() {
  txtView->SetSelStart(0);
  txtView->SetSelLength(0);
}

void frmShowClip::Form_Resize() {
  Apply(*Frame1, {kFrameLeft, kFrameTop, ScaleWidth() - kFrameLeft - kMargin, ScaleHeight() - kFrameTop - kMargin});
  const double width = TwipsFromPixels(Frame1->width()) - kViewLeft - kMargin;
  const double height = TwipsFromPixels(Frame1->height()) - kViewTop - kMargin;
  Apply(*txtView, {kViewLeft, kViewTop, width, height});
  Apply(*picView, {kViewLeft, kViewTop, width, height});
  QRect list = txtView->geometry().translated(Frame1->pos());
  list.setTop(Frame1->y());
  lstFormats->setGeometry(list);
}

void frmShowClip::cmdSelectAll_Click() {
  txtView->SetSelStart(0);
  txtView->SetSelLength(static_cast<int>(txtView->Text().size()));
}

void frmShowClip::cmdCopy_Click() {
  const QScopedValueRollback busy(m_isBusy, true);
  ClipboardAccess& clipboard = m_services.access;
  const bool holdsText =
      clipboard.HasFormat(kFormatText) || clipboard.HasFormat(kFormatFileList) || clipboard.HasFormat(kFormatRichText);
  if (!holdsText) {
    m_services.messages.ShowInformation(QStringLiteral("This option only works with text display."));
  } else if (txtView->SelLength() < 1) {
    m_services.messages.ShowInformation(QStringLiteral("No text selected."));
  } else {
    CopySelection();
  }
}

void frmShowClip::CopySelection() {
  const QScopedValueRollback busy(m_isBusy, true);
  m_services.writer.AddRtf(txtView->SelRtf());
}

void frmShowClip::cmdExit_Click() {
  close();
}

void frmShowClip::cmdFormats_Click() {
  const bool showList = !lstFormats->isVisible();
  Frame1->setVisible(!showList);
  lstFormats->setVisible(showList);
  if (!showList) return txtView->setFocus();
  lstFormats->Open(winId());
}

bool frmShowClip::txtView_KeyDown(const QKeyEvent& key) {
  if (key.modifiers() != Qt::ControlModifier) return false;
  if (key.key() == Qt::Key_A) {
    cmdSelectAll_Click();
    return true;
  }
  if (key.key() != Qt::Key_C || txtView->SelLength() < 1) return false;
  CopySelection();
  return true;
}

bool frmShowClip::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtView && event->type() == QEvent::KeyPress) {
    if (txtView_KeyDown(static_cast<const QKeyEvent&>(*event))) return true;
  }
  return ClipboardWindow::eventFilter(watched, event);
}

}  // namespace snipdeck

#include "capture/clipboard_capture.h"

#include <QApplication>
#include <QLabel>

#include "capture/last_paragraph.h"
#include "capture/without_undo.h"
#include "richtext/clipboard_text.h"

namespace snipdeck {

namespace {

constexpr qsizetype kLongText = 100'000;  // characters

/// The focus never leaves a text that the user may be typing in for one that cannot be seen.
void FocusIfShown(RichTextControl& control) {
  const QWidget* focused = QApplication::focusWidget();
  const bool typingElsewhere = focused && focused != &control && focused->testAttribute(Qt::WA_InputMethodEnabled);
  if (control.isVisible() && !typingElsewhere) control.setFocus();
}

}  // namespace

ClipboardCapture::ClipboardCapture(BoxSet& boxes, const Clipboard& clipboard, const std::int16_t& startWithCumulative)
    : m_boxes(boxes), m_clipboard(clipboard), m_startWithCumulative(startWithCumulative) {}

void ClipboardCapture::ProcessClipboard() {
  if (CaptureIsOff()) return;
  NameKind();
  if (!m_clipboard.HasFormat(kFormatRichText) && !m_clipboard.HasFormat(kFormatText)) return StageFileNames();
  StageContents();
  AdvanceRing();
  AppendToCumulative();
  FileIntoBox();
}

void ClipboardCapture::AppendOnly() {
  StageContents();
  AppendToCumulative();
}

void ClipboardCapture::ShowAsLatest() {
  NameKind();
  for (int n = 1; n <= kBoxCount; ++n)
    m_boxes.Box(n).SetBackColor(n == m_boxes.CurrentBox ? kLatestBoxColour : kBoxColour);
}

bool ClipboardCapture::CaptureIsOff() const {
  return m_boxes.Frame1->isVisible() && m_startWithCumulative != 1;
}

void ClipboardCapture::NameKind() {
  static constexpr struct {
    ClipboardFormat format;
    const char* name;
  } kinds[] = {{kFormatRichText, "RTF text"},
               {kFormatText, "plain text"},
               {kFormatBitmap, "image"},
               {kFormatFileList, "file/folder names"}};
  for (const auto& kind : kinds) {
    if (!m_clipboard.HasFormat(kind.format)) continue;
    m_boxes.lblFormat->setText(QString::fromLatin1(kind.name));
    // The label's accessible name says what it is for; what it says is told as its description.
    m_boxes.lblFormat->setAccessibleDescription(m_boxes.lblFormat->text());
    return;
  }
}

void ClipboardCapture::StageFileNames() {
  if (!m_clipboard.HasFormat(kFormatFileList)) return;
  QString names;
  for (const QString& name : m_clipboard.FileList()) names += name + QStringLiteral("\r\n");
  m_boxes.txtView.SetText(names);
}

void ClipboardCapture::StageContents() {
  if (const auto text = FormattedText(m_clipboard)) {
    m_boxes.txtView.SetSelRtf(*text);
  } else {
    m_boxes.txtView.SetText(m_clipboard.Text());
  }
}

void ClipboardCapture::AdvanceRing() {
  m_boxes.CurrentBox = static_cast<std::int16_t>(m_boxes.CurrentBox < kBoxCount ? m_boxes.CurrentBox + 1 : 1);
}

void ClipboardCapture::AppendToCumulative() {
  RichTextControl& cumulative = m_boxes.TXTextControl2();
  FocusIfShown(cumulative);
  const WithoutUndo withoutUndo(cumulative);
  // Long plain text is not made into formatted text and back.
  if (m_clipboard.HasFormat(kFormatRichText) || m_boxes.txtView.SelRtf().Length() > kLongText) {
    cumulative.AppendRichText(m_boxes.txtView.SelRtf());
  } else {
    cumulative.AppendText(m_boxes.txtView.Text());
  }
  cumulative.AppendText(QStringLiteral("\n"));
  ResetLastParagraph(cumulative);
}

void ClipboardCapture::FileIntoBox() {
  for (int n = 1; n <= kBoxCount; ++n) m_boxes.Box(n).SetBackColor(kBoxColour);
  const RichText captured = m_boxes.txtView.SelRtf();
  m_boxes.CapturedRtf[static_cast<size_t>(m_boxes.CurrentBox)] = captured;
  RichTextControl& box = m_boxes.Box(m_boxes.CurrentBox);
  box.SetText(QString());
  box.SetBackColor(kLatestBoxColour);
  const WithoutUndo withoutUndo(box);
  box.SetSelRichText(captured);
}

}  // namespace snipdeck

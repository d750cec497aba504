// Loading and saving, for RichTextControl.

#include <QTextFrame>

#include "platform/message_box.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/document_file.h"
#include "richtext/document_page.h"
#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr int kPageAttributes = 6;
constexpr int kLoadFailed = 0x1d08;
constexpr int kSaveFailed = 0x1d09;

int PageProperty(int attribute) {
  return kPageWidth + attribute;
}
static_assert(kPageHeight == kPageWidth + 1 && kPageMarginLeft == kPageWidth + 2 && kPageMarginTop == kPageWidth + 3 &&
              kPageMarginRight == kPageWidth + 4 && kPageMarginBottom == kPageWidth + 5);

QString FailureText(const QString& what, const QString& path, const Failure& failure) {
  const QString lineEnd = QStringLiteral("\r\n\r\n");
  return what + lineEnd + path + lineEnd + (failure.text.isEmpty() ? QStringLiteral("Unknown reason") : failure.text);
}

}  // namespace

int RichTextControl::LoadSaveAttribute(int index) const {
  return index >= 0 && index < static_cast<int>(m_loadSaveAttributes.size())
             ? m_loadSaveAttributes[static_cast<std::size_t>(index)]
             : 0;
}

void RichTextControl::SetLoadSaveAttribute(int index, int value) {
  if (index < 0 || index >= static_cast<int>(m_loadSaveAttributes.size())) return;
  m_loadSaveAttributes[static_cast<std::size_t>(index)] = value;
}

Outcome RichTextControl::LoadFile(const QString& path, int, FileFormat format) {
  const Result<RichText> text = ReadDocumentFile(path, format);
  if (!text) {
    ReportFailure(kLoadFailed, FailureText(QStringLiteral("Cannot load this file:"), path, text.Error()));
    return text.Error();
  }
  const QTextFrameFormat page = text.Value().Document().rootFrame()->frameFormat();
  for (int i = 0; i < kPageAttributes; ++i) SetLoadSaveAttribute(i, page.intProperty(PageProperty(i)));
  SetText(QString());
  SetSelRichText(text.Value());
  SetSelStart(0);
  ClearUndoHistory();
  return Done{};
}

// The attributes are the document's page as a rule; a host that set others saves those with the text.
Outcome RichTextControl::SaveTo(const QString& path, FileFormat format) {
  PageGeometry page = PageOf(*document());
  int* const values[kPageAttributes] = {&page.width, &page.height, &page.left, &page.top, &page.right, &page.bottom};
  for (int i = 0; i < kPageAttributes; ++i) {
    if (LoadSaveAttribute(i) > 0) *values[i] = LoadSaveAttribute(i);
  }
  if (page == PageOf(*document())) return WriteDocumentFile(*document(), path, format);
  QTextDocument copy;
  copy.setUndoRedoEnabled(false);
  copy.setDefaultFont(document()->defaultFont());
  QTextCursor cursor(&copy);
  RichText::FromDocument(*document()).InsertAt(cursor);
  SetPageOf(copy, page);
  return WriteDocumentFile(copy, path, format);
}

Outcome RichTextControl::SaveFile(const QString& path, int, FileFormat format) {
  const Outcome saved = SaveTo(path, format);
  if (saved) return saved;
  const QString description = FailureText(QStringLiteral("Cannot save this file:"), path, saved.Error());
  ReportFailure(kSaveFailed, description + QStringLiteral(" (%1)").arg(kSaveFailed, 4, 16, QLatin1Char('0')));
  return saved;
}

void RichTextControl::ReportFailure(int number, const QString& description) {
  bool isShown = true;
  emit Error(number, description, &isShown);
  if (isShown && m_messages) m_messages->Show({.text = description, .icon = MessageIcon::Exclamation});
}

}  // namespace snipdeck

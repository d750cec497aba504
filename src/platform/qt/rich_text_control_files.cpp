// Loading and saving, for RichTextControl.

#include <QFileInfo>
#include <QTextFrame>
#include <QThread>

#include "platform/long_work.h"
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

QString FileName(const QString& path) {
  return QFileInfo(path).fileName();
}

/// What the user has cancelled needs no report.
Failure Cancelled() {
  return {Failure::Kind::Refused, QString()};
}

bool IsCancelled(const Failure& failure) {
  return failure.kind == Failure::Kind::Refused && failure.text.isEmpty();
}

Result<RichText> Read(LongWork* work, const QString& path, FileFormat format) {
  if (!work) return ReadDocumentFile(path, format);
  Result<RichText> text = Cancelled();
  QThread* const here = QThread::currentThread();
  const bool isWanted = work->Run(RichTextControl::tr("Loading %1 ...").arg(FileName(path)), [&](const auto& step) {
    text = ReadDocumentFile(path, format, step);
    if (text) text.Value().MoveToThread(here);
  });
  return isWanted ? text : Cancelled();
}

// Of a document that nothing changes meanwhile.
Outcome Write(LongWork* work, const QTextDocument& document, const QString& path, FileFormat format) {
  if (!work) return WriteDocumentFile(document, path, format);
  Outcome saved = Cancelled();
  work->Run(RichTextControl::tr("Saving %1 ...").arg(FileName(path)),
            [&](const auto& step) { saved = WriteDocumentFile(document, path, format, step); });
  return saved;
}

bool NamesItsPage(const QTextDocument& document) {
  const QTextFrameFormat format = document.rootFrame()->frameFormat();
  for (int i = 0; i < kPageAttributes; ++i) {
    if (!format.hasProperty(PageProperty(i))) return false;
  }
  return true;
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
  const int end = LastPosition();
  const Result<RichText> text = Read(m_longWork, path, format);
  if (!text) {
    if (!IsCancelled(text.Error()))
      ReportFailure(kLoadFailed, FailureText(QStringLiteral("Cannot load this file:"), path, text.Error()));
    return text.Error();
  }
  const QTextFrameFormat page = text.Value().Document().rootFrame()->frameFormat();
  for (int i = 0; i < kPageAttributes; ++i) SetLoadSaveAttribute(i, page.intProperty(PageProperty(i)));
  // What was added while the file was read comes after it.
  const RichText added = LastPosition() > end ? RichText::FromDocument(*document(), end) : RichText();
  SetText(QString());
  SetSelRichText(text.Value());
  if (!added.IsEmpty()) AppendRichText(added);
  SetSelStart(0);
  ClearUndoHistory();
  return Done{};
}

// Attributes that the host has set are saved with the text, also where they say what a reader would take anyway: another
// program takes something else. A copy is written, since the text may be added to meanwhile.
Outcome RichTextControl::SaveTo(const QString& path, FileFormat format) {
  PageGeometry page = PageOf(*document());
  int* const values[kPageAttributes] = {&page.width, &page.height, &page.left, &page.top, &page.right, &page.bottom};
  bool isSet = false;
  for (int i = 0; i < kPageAttributes; ++i) {
    if (LoadSaveAttribute(i) <= 0) continue;
    *values[i] = LoadSaveAttribute(i);
    isSet = true;
  }
  if (!isSet || (page == PageOf(*document()) && NamesItsPage(*document()))) {
    if (!m_longWork) return Write(nullptr, *document(), path, format);
    return Write(m_longWork, RichText::FromDocument(*document()).Document(), path, format);
  }
  QTextDocument copy;
  copy.setUndoRedoEnabled(false);
  copy.setDefaultFont(document()->defaultFont());
  QTextCursor cursor(&copy);
  RichText::FromDocument(*document()).InsertAt(cursor);
  SetPageOf(copy, page);
  return Write(m_longWork, copy, path, format);
}

Outcome RichTextControl::SaveFile(const QString& path, int, FileFormat format) {
  const Outcome saved = SaveTo(path, format);
  if (saved || IsCancelled(saved.Error())) return saved;
  const QString description = FailureText(QStringLiteral("Cannot save this file:"), path, saved.Error());
  ReportFailure(kSaveFailed, description, QStringLiteral(" (%1)").arg(kSaveFailed, 4, 16, QLatin1Char('0')));
  return saved;
}

void RichTextControl::ReportFailure(int number, const QString& description, const QString& code) {
  bool isShown = true;
  emit Error(number, description + code, &isShown);
  if (isShown && m_messages) m_messages->Show({.text = description, .icon = MessageIcon::Exclamation});
}

}  // namespace snipdeck

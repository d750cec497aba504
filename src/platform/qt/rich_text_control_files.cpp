// Loading and saving, for RichTextControl.

#include <utility>

#include <QFileInfo>
#include <QTextCursor>
#include <QTextFrame>
#include <QThread>

#include "platform/long_work.h"
#include "platform/message_box.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/layout/gradual_fill.h"
#include "richtext/document_file.h"
#include "richtext/document_flow.h"
#include "richtext/document_page.h"
#include "richtext/format_properties.h"
#include "richtext/safe_document.h"

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

Failure Cancelled() {
  return {Failure::Kind::Refused, QString()};
}

/// Without a LongWork: everything at once.
bool RunAtOnce(const LongWork::Work& work, const LongWork::Turns& turns) {
  while (turns.before && turns.before()) {
  }
  work({});
  while (turns.after && turns.after()) {
  }
  return true;
}

bool Run(LongWork* longWork, const QString& what, const LongWork::Work& work, const LongWork::Turns& turns) {
  return longWork ? longWork->Run(what, work, turns) : RunAtOnce(work, turns);
}

/// What is written of a text that is shown, whatever shows it does with it meanwhile.
class TextCopy {
 public:
  TextCopy(const QTextDocument& content, const std::optional<PageGeometry>& page, const PageTexts& pageTexts)
      : m_content(content), m_page(page), m_pageTexts(pageTexts), m_font(content.defaultFont()), m_flow(content) {}

  /// For some milliseconds, but all at once where there are tables or frames. False when all is copied.
  bool TakePart() {
    if (!IsPlainFlow(m_content)) {
      m_copy = RichText::FromDocument(m_content);
      return false;
    }
    if (m_flow.ReadPart()) return true;
    m_copy = RichText::FromFlow(m_flow.Take(), {});
    return false;
  }

  /// May run on another thread.
  Outcome Write(const QString& path, FileFormat format, const FileProgress& progress) const {
    SafeDocument document;
    document.setDefaultFont(m_font);
    QTextCursor cursor(&document);
    QTextFrameFormat named = m_copy.Page();
    SetPageTexts(named, m_pageTexts);
    document.rootFrame()->setFrameFormat(named);
    m_copy.InsertAt(cursor);
    if (m_page) SetPageOf(document, *m_page);
    return WriteDocumentFile(document, path, format, progress);
  }

 private:
  const QTextDocument& m_content;
  const std::optional<PageGeometry> m_page;
  const PageTexts m_pageTexts;
  const QFont m_font;
  DocumentFlow m_flow;
  RichText m_copy;
};

bool NamesItsPage(const QTextDocument& document) {
  const QTextFrameFormat format = document.rootFrame()->frameFormat();
  for (int i = 0; i < kPageAttributes; ++i) {
    if (!format.hasProperty(PageProperty(i))) return false;
  }
  return true;
}

/// What the attributes say of the page; false where they say nothing.
bool TakeAttributes(const RichTextControl& control, PageGeometry& page) {
  int* const values[kPageAttributes] = {&page.width, &page.height, &page.left, &page.top, &page.right, &page.bottom};
  bool isSet = false;
  for (int i = 0; i < kPageAttributes; ++i) {
    if (control.LoadSaveAttribute(i) <= 0) continue;
    *values[i] = control.LoadSaveAttribute(i);
    isSet = true;
  }
  return isSet;
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
  Result<RichText> text = Cancelled();
  QThread* const here = QThread::currentThread();
  const auto read = [&](const LongWork::Step& step) {
    text = ReadDocumentFile(path, format, step);
    if (text) text.Value().MoveToThread(here);
  };
  bool isBegun = false;
  const auto fill = [&] {
    if (text && !std::exchange(isBegun, true)) BeginLoaded(text.Value());
    m_filling->AddSome();
    return m_filling->IsFilling();
  };
  if (!Run(m_longWork, tr("Loading %1 ...").arg(FileName(path)), read, {{}, fill})) return Cancelled();
  if (text) return Done{};
  if (!IsCancelled(text.Error()))
    ReportFailure(kLoadFailed, FailureText(QStringLiteral("Cannot load this file:"), path, text.Error()));
  return text.Error();
}

// No step of undo leads back to the text before it. Another page places every line anew, so it is set while there are none.
void RichTextControl::BeginLoaded(const RichText& text) {
  const QTextFrameFormat named = text.Page();
  for (int i = 0; i < kPageAttributes; ++i) SetLoadSaveAttribute(i, named.intProperty(PageProperty(i)));
  m_loadedPageTexts = PageTextsOf(named);
  PageGeometry page = Page();
  SetText(QString());
  QTextEdit::document()->setUndoRedoEnabled(false);
  if (TakeAttributes(*this, page)) SetPage(page);
  SetSelRichText(text);
  setTextCursor(QTextCursor(QTextEdit::document()));
  QTextEdit::document()->setUndoRedoEnabled(true);
}

// Attributes that the host has set are saved with the text, also where they say what a reader would take anyway: another
// program takes something else.
std::optional<PageGeometry> RichTextControl::PageToSave() const {
  const QTextDocument& content = *document();
  PageGeometry page = PageOf(content);
  const bool isSet = TakeAttributes(*this, page);
  if (!isSet || (page == PageOf(content) && NamesItsPage(content))) return {};
  return page;
}

Outcome RichTextControl::SaveTo(const QString& path, FileFormat format) {
  const std::optional<PageGeometry> page = PageToSave();
  if (!m_longWork && !page && m_pageTextsToSave == PageTexts()) return WriteDocumentFile(*document(), path, format);
  TextCopy copy(*document(), page, m_pageTextsToSave);
  Outcome saved = Cancelled();
  const auto write = [&](const LongWork::Step& step) { saved = copy.Write(path, format, step); };
  Run(m_longWork, tr("Saving %1 ...").arg(FileName(path)), write, {[&copy] { return copy.TakePart(); }, {}});
  return saved;
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

#include "richtext/html/html_lines.h"

#include "richtext/html/html_attributes.h"
#include "richtext/html/html_entities.h"

namespace snipdeck {
namespace {

// Paragraphs take their time to be made, and long ones to be laid out.
constexpr int kMaxPlainParagraphs = 50'000;
constexpr int kLinesInParagraph = 50;

}  // namespace

void HtmlLines::Write(const QString& html) {
  if (!m_isOff) m_html += html;
}

void HtmlLines::Text(const QString& text, TextStyle::Blanks blanks) {
  if (m_isOff || text.isEmpty()) return;
  if (blanks == TextStyle::Blanks::Keep) return WriteKept(text);
  for (qsizetype at = 0; at < text.size();) {
    qsizetype end = at;
    bool hasLineEnd = false;
    for (; end < text.size() && IsHtmlBlank(text[end]); ++end) hasLineEnd = hasLineEnd || text[end] == u'\n';
    if (end > at) {
      if (hasLineEnd && blanks == TextStyle::Blanks::KeepLines) {
        DropBlank();
        WriteKept(QStringLiteral("\n"));
        m_lineIsEmpty = true;
      } else {
        Blank();
      }
    }
    for (at = end; end < text.size() && !IsHtmlBlank(text[end]); ++end) continue;
    if (end == at) continue;
    Content();
    m_html += EscapeText(text.mid(at, end - at));
    at = end;
  }
}

/// Readers take the first line end of a block that keeps them for a part of its tag.
void HtmlLines::WriteKept(const QString& text) {
  Content();
  const bool isFirst = m_blockTagEnd > 0 && m_html.size() == m_blockTagEnd + 1;
  if (isFirst && text.startsWith(u'\n')) m_html += u'\n';
  m_html += EscapeText(text);
  if (text.endsWith(u'\n')) m_newlineAt = m_html.size() - 1;
}

void HtmlLines::Blank() {
  if (m_lineIsEmpty || m_blankAt >= 0) return;
  m_blankAt = m_html.size();
  m_html += u' ';
}

void HtmlLines::DropBlank() {
  if (m_blankAt >= 0) m_html.remove(m_blankAt, 1);
  m_blankAt = -1;
}

void HtmlLines::DropNewline() {
  if (m_newlineAt >= 0) m_html.remove(m_newlineAt, 1);
  m_newlineAt = -1;
}

void HtmlLines::Content() {
  BeginLooseText();
  m_hasContent = true;
  m_lineIsEmpty = false;
  m_lastBreak = -1;
  m_blankAt = -1;
  m_newlineAt = -1;
}

void HtmlLines::Break() {
  if (m_isOff) return;
  DropBlank();
  BeginLooseText();
  m_lastBreak = m_html.size();
  m_breakHadContent = m_hasContent;
  m_newlineAt = -1;
  Write(QStringLiteral("<br>"));
  m_hasContent = true;
  m_lineIsEmpty = true;
}

void HtmlLines::EndPlainLine() {
  if (m_isOff || m_lineIsEmpty) return;
  DropBlank();
  ++m_plainLines;
  const bool isParagraph = m_plainLines < kMaxPlainParagraphs || m_plainLines % kLinesInParagraph == 0;
  WriteKept(isParagraph ? QChar(u'\n') : QChar(QChar::LineSeparator));
  m_lineIsEmpty = true;
}

void HtmlLines::PartPlainCells() {
  if (m_isOff || m_lineIsEmpty) return;
  DropBlank();
  WriteKept(QStringLiteral("\t"));
}

void HtmlLines::StartBlock(qsizetype depth) {
  if (m_isOff) return;
  EndContents(depth);
  ForgetLine();
  m_blockEnd = -1;
}

void HtmlLines::ForgetLine() {
  DropBlank();
  m_newlineAt = -1;
  m_hasContent = false;
  m_lineIsEmpty = true;
  m_lastBreak = -1;
}

void HtmlLines::BeginLooseText() {
  if (m_blockEnd < 0 || m_isOff) return;
  const QLatin1String begin("<div>");
  const QLatin1String end("</div>");
  if (!m_looseDepths.isEmpty() && m_looseDepths.last() == m_depthAtBlockEnd) {
    m_html.insert(m_blockEnd, end);
    m_blockEnd += end.size();
  } else {
    m_looseDepths.append(m_depthAtBlockEnd);
  }
  m_html.insert(m_blockEnd, begin);
  m_blockTagEnd = m_blockEnd + begin.size() - 1;
  m_blockEnd = -1;
}

void HtmlLines::EndContents(qsizetype depth) {
  while (!m_isOff && !m_looseDepths.isEmpty() && m_looseDepths.last() >= depth) {
    EndBlock();
    Write(QStringLiteral("</div>"));
    NoteEndTag(m_looseDepths.takeLast(), true);
  }
}

void HtmlLines::NoteEndTag(qsizetype depth, bool isOfBlock) {
  if (m_isOff || (!isOfBlock && (m_blockEnd < 0 || depth >= m_depthAtBlockEnd))) return;
  m_blockEnd = m_html.size();
  m_depthAtBlockEnd = depth;
}

void HtmlLines::EndBlock() {
  if (m_isOff) return;
  DropBlank();
  DropNewline();
  if (m_blockTagEnd > 0 && m_lastBreak >= 0 && !m_breakHadContent) {
    m_html.remove(m_lastBreak, 4);
    MarkEmpty();
  } else {
    EndLine();
  }
  ForgetLine();
  m_blockTagEnd = 0;
}

void HtmlLines::EndLine() {
  if (m_isOff) return;
  DropBlank();
  DropNewline();
  if (m_lastBreak < 0) return;
  const QLatin1String empty("<div style=\"-qt-paragraph-type:empty;\"></div>");
  m_html.replace(m_lastBreak, 4, m_breakHadContent ? QLatin1String() : empty);
  m_lastBreak = -1;
}

void HtmlLines::MarkEmpty() {
  const bool hasStyle =
      m_html[m_blockTagEnd - 1] == u'"' &&
      m_html.lastIndexOf(QLatin1String(" style="), m_blockTagEnd) > m_html.lastIndexOf(u'<', m_blockTagEnd);
  const QString css = QStringLiteral("-qt-paragraph-type:empty;");
  m_html.insert(hasStyle ? m_blockTagEnd - 1 : m_blockTagEnd, hasStyle ? css : QLatin1String(" style=") + Quoted(css));
}

}  // namespace snipdeck

#include "richtext/html/html_lines.h"

#include "richtext/html/html_attributes.h"

namespace snipdeck {

void HtmlLines::Write(const QString& html) {
  if (!m_isOff) m_html += html;
}

void HtmlLines::Blank() {
  if (!m_hasContent || m_isOff) return;
  m_blankAt = m_html.size();
  Write(QStringLiteral(" "));
}

void HtmlLines::DropBlank() {
  if (m_blankAt >= 0) m_html.remove(m_blankAt, 1);
  m_blankAt = -1;
}

void HtmlLines::Content() {
  BeginLooseText();
  m_hasContent = true;
  m_lastBreak = -1;
  m_blankAt = -1;
}

void HtmlLines::Break() {
  BeginLooseText();
  m_lastBreak = m_html.size();
  m_breakHadContent = m_hasContent;
  m_blankAt = -1;
  Write(QStringLiteral("<br>"));
  m_hasContent = true;
}

void HtmlLines::StartBlock(qsizetype depth) {
  EndContents(depth);
  ForgetLine();
  m_blockEnd = -1;
}

void HtmlLines::ForgetLine() {
  DropBlank();
  m_hasContent = false;
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
  while (!m_looseDepths.isEmpty() && m_looseDepths.last() >= depth) {
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
  DropBlank();
  if (m_blockTagEnd > 0 && m_lastBreak >= 0 && !m_breakHadContent && !m_isOff) {
    m_html.remove(m_lastBreak, 4);
    MarkEmpty();
  } else {
    EndLine();
  }
  ForgetLine();
  m_blockTagEnd = 0;
}

void HtmlLines::EndLine() {
  DropBlank();
  if (m_lastBreak < 0 || m_isOff) return;
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

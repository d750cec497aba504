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
  m_hasContent = true;
  m_lastBreak = -1;
  m_blankAt = -1;
}

void HtmlLines::Break() {
  m_lastBreak = m_html.size();
  m_breakHadContent = m_hasContent;
  m_blankAt = -1;
  Write(QStringLiteral("<br>"));
  m_hasContent = true;
}

void HtmlLines::StartBlock() {
  DropBlank();
  m_hasContent = false;
  m_lastBreak = -1;
}

void HtmlLines::EndBlock() {
  DropBlank();
  if (m_blockTagEnd > 0 && m_lastBreak >= 0 && !m_breakHadContent && !m_isOff) {
    m_html.remove(m_lastBreak, 4);
    MarkEmpty();
  } else {
    EndLine();
  }
  StartBlock();
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

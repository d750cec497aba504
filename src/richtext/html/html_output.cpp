#include "richtext/html/html_output.h"

namespace snipdeck {

void HtmlOutput::SwitchOff(bool isOff) {
  m_page.SwitchOff(isOff);
  for (StrayText& stray : m_strays) stray.lines.SwitchOff(isOff);
}

void HtmlOutput::WriteOpenElements() {
  qsizetype table = 0;
  for (const OpenElement& element : m_open) {
    if (element.name == QLatin1String("table")) m_strays[table++].begin = m_page.Size();
    if (!element.isStray) m_page.Write(element.startTag);
  }
}

void HtmlOutput::StartBlock(const QString& name) {
  HtmlLines& lines = For(name);
  lines.EndContents(m_open.size());
  if (!IsPartOfTable(name) || name == QLatin1String("table")) lines.EndLine();
  lines.StartBlock(m_open.size());
}

void HtmlOutput::StartLoneBlock() {
  StartBlock(QStringLiteral("div"));
  Here().Write(QStringLiteral("<div>"));
  Here().NoteBlockTag();
}

void HtmlOutput::EndLoneBlock() {
  Here().EndBlock();
  Here().Write(QStringLiteral("</div>"));
  Here().NoteEndTag(m_open.size(), true);
}

void HtmlOutput::Rule() {
  StartBlock(QStringLiteral("hr"));
  Here().Write(QStringLiteral("<hr>"));
  Here().NoteEndTag(m_open.size(), true);
}

void HtmlOutput::Break() {
  More();
  Here().Break();
}

void HtmlOutput::BreakBeforeMore() {
  More();
  m_owesBreak = true;
}

void HtmlOutput::More() {
  if (m_owesBreak) Here().Break();
  m_owesBreak = false;
}

void HtmlOutput::StartTable() {
  m_strays.append({HtmlLines(), m_page.Size()});
  m_strays.last().lines.SwitchOff(m_page.IsOff());
}

void HtmlOutput::EndTable() {
  StrayText stray = m_strays.takeLast();
  stray.lines.EndContents(0);
  stray.lines.EndBlock();
  const QString html = stray.lines.Take();
  if (!html.isEmpty()) m_page.Insert(stray.begin, QLatin1String("<div>") + html + QLatin1String("</div>"));
}

QString HtmlOutput::Take() {
  return m_page.Take();
}

}  // namespace snipdeck

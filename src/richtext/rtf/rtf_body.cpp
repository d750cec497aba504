#include "richtext/rtf/rtf_body.h"

#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

constexpr std::size_t kMaxTableDepth = 32;
constexpr std::size_t kMaxCellsInRow = 256;
constexpr qsizetype kDeliverCharacters = 24 * 1024;
constexpr std::size_t kDeliverItems = 4096;

// What no document may hold: the controls below the blank, noncharacters (Qt marks its frames with some), and the
// object character without an object.
bool IsForbidden(char16_t c) {
  if (c < 0x20) return c != u'\t';
  if (c < 0xFDD0) return c == 0x2029;
  return c <= 0xFDEF || c == 0xFFFC || c == 0xFFFE || c == 0xFFFF;
}

bool HasForbidden(QStringView text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) { return IsForbidden(c.unicode()); });
}

QString Filtered(QStringView text) {
  QString filtered;
  for (const QChar c : text) {
    if (c == u'\n' || c == u'\v' || c == QChar::ParagraphSeparator) {
      filtered.append(QChar::LineSeparator);
    } else if (!IsForbidden(c.unicode())) {
      filtered.append(c);
    }
  }
  return filtered;
}

}  // namespace

void RtfBody::Text(QStringView text) {
  m_shown += text.size();
  const GroupState& state = m_parser.State();
  if (state.character.hidden && !m_parser.IsForDocument()) return;
  if (HasForbidden(text)) text = m_filtered = Filtered(text);
  m_paragraph.AddRun(text, m_parser.Formats().Character(state.character));
}

void RtfBody::AddImage(const QTextImageFormat& format) {
  static constexpr QChar kObject = QChar::ObjectReplacementCharacter;
  ++m_shown;
  m_paragraph.AddRun(QStringView(&kObject, 1), m_parser.Formats().AddCharacter(format));
}

int RtfBody::ParagraphLevel() const {
  const GroupState& state = m_parser.State();
  if (state.inTable) return std::max(1, state.tableLevel);
  // A row that has begun goes on although its writer forgot to say so.
  return m_tables.empty() || m_tables.front().cells.empty() ? 0 : 1;
}

void RtfBody::SetLevel(std::size_t level) {
  level = std::min(level, kMaxTableDepth);
  while (m_tables.size() > level) CloseTable();
  while (m_tables.size() < level) m_tables.emplace_back();
}

void RtfBody::CloseTable() {
  FinishRow(m_tables.back(), m_tables.size());
  OpenTable table = std::move(m_tables.back());
  m_tables.pop_back();
  if (!table.table->rows.empty()) Target().AddTable(std::move(table.table));
}

void RtfBody::FinishRow(OpenTable& table, std::size_t level) {
  if (!table.cell.IsEmpty()) table.cells.push_back(std::move(table.cell));
  table.cell.Clear();
  if (table.cells.empty()) return;
  RowFlow row;
  row.layout = m_parser.Rows(static_cast<int>(level)).Layout(table.cells.size());
  row.cells = std::move(table.cells);
  row.cells.resize(row.layout->cells.size());
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    m_parser.Formats().ShowOn(row.layout->cells[i].background, row.cells[i]);
  }
  table.cells.clear();
  table.table->rows.push_back(std::move(row));
}

// Takes away the space between two paragraphs of one style that want none.
void RtfBody::JoinParagraphBefore(ParagraphState& paragraph, Flow& target) {
  const bool follows = !target.items.empty() && target.items.back().kind == FlowItem::Kind::ParagraphEnd;
  if (follows && paragraph.style == m_styleBefore) {
    if (paragraph.noSpaceWithinStyle) paragraph.spaceBefore = 0;
    if (m_noSpaceBehind) target.items.back().format = m_parser.Formats().WithoutSpaceAfter(target.items.back().format);
  }
  m_styleBefore = paragraph.style;
  m_noSpaceBehind = paragraph.noSpaceWithinStyle && paragraph.spaceAfter > 0;
}

void RtfBody::MoveParagraphTo(Flow& target) {
  ParagraphState paragraph = m_parser.State().paragraph;
  if (m_breakBefore && m_tables.empty()) {
    paragraph.pageBreakBefore = true;
    m_breakBefore = false;
  }
  JoinParagraphBefore(paragraph, target);
  const int mark = m_parser.Formats().Character(m_parser.State().character);
  QString label;
  const int format = m_parser.ParagraphFormat(paragraph, label);
  if (!label.isEmpty()) m_paragraph.Prepend(Filtered(label), mark);
  m_paragraph.EndParagraph(format, mark);
  m_parser.Formats().ShowOnShading(m_paragraph);
  target.Append(std::move(m_paragraph));
  if (m_after.IsEmpty()) return;
  target.Append(std::move(m_after));
  m_styleBefore = -1;
}

void RtfBody::EndParagraph() {
  SetLevel(static_cast<std::size_t>(ParagraphLevel()));
  MoveParagraphTo(Target());
  if (m_tables.empty()) Deliver();
}

void RtfBody::BreakPage() {
  if (HasOpenParagraph()) EndParagraph();
  m_breakBefore = true;
}

void RtfBody::EndSection() {
  BreakPage();
}

// The end of an outer cell while the row of an inner table is still to be ended: a writer's slip behind a table that
// is deeper still.
bool RtfBody::IsStrayCellEnd(int level) const {
  const int paragraphLevel = ParagraphLevel();
  if (level >= paragraphLevel || HasOpenParagraph()) return false;
  const OpenTable& table = m_tables.back();
  return m_tables.size() == static_cast<std::size_t>(paragraphLevel) && table.cell.IsEmpty() && !table.cells.empty();
}

void RtfBody::EndCell(int level) {
  if (!m_tables.empty() && IsStrayCellEnd(level)) return;
  SetLevel(static_cast<std::size_t>(std::max(level, 1)));
  OpenTable& table = m_tables.back();
  MoveParagraphTo(table.cell);
  if (table.cells.size() < kMaxCellsInRow) {
    table.cells.push_back(std::move(table.cell));
  } else {
    table.cells.back().Append(std::move(table.cell));
  }
  table.cell.Clear();
}

void RtfBody::EndRow(int level) {
  const std::size_t depth = static_cast<std::size_t>(std::max(level, 1));
  if (HasOpenParagraph()) EndCell(level);
  if (m_tables.size() < std::min(depth, kMaxTableDepth)) return;
  SetLevel(depth);
  FinishRow(m_tables.back(), depth);
}

void RtfBody::AddAfterParagraph(Flow&& flow) {
  m_after.Append(std::move(flow));
}

void RtfBody::Close() {
  if (HasOpenParagraph() || !m_after.IsEmpty()) EndParagraph();
  SetLevel(0);
  if (!m_flow.IsEmpty()) m_sink(std::move(m_flow));
  m_flow.Clear();
}

void RtfBody::Deliver() {
  if (m_flow.text.size() < kDeliverCharacters && m_flow.items.size() < kDeliverItems) return;
  m_sink(std::move(m_flow));
  m_flow.Clear();
}

}  // namespace snipdeck

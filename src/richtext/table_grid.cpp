#include "richtext/table_grid.h"

#include <algorithm>

#include "platform/units.h"
#include "richtext/format_properties.h"
#include "richtext/format_spread.h"

namespace snipdeck {
namespace {

constexpr int kSameEdge = 20;  // Twips: edges that a writer rounded differently.
constexpr std::size_t kMaxEdges = 129;

bool SameEdges(const RowLayout& a, const RowLayout& b) {
  return std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                    [](const CellLayout& x, const CellLayout& y) { return x.right == y.right; });
}

bool HasMergedCells(const RowLayout& row) {
  return std::any_of(row.cells.begin(), row.cells.end(),
                     [](const CellLayout& cell) { return cell.joinsLeft || cell.joinsAbove; });
}

bool GoesOnFromAbove(const RowFlow& row) {
  const auto& cells = row.layout->cells;
  return std::any_of(cells.begin(), cells.end(), [](const CellLayout& cell) { return cell.joinsAbove; });
}

double Pixels(int twips) {
  return twips / kTwipsPerPixel;
}

}  // namespace

TableGrid::TableGrid(const TableFlow& table, std::size_t begin, std::size_t end)
    : m_rows(static_cast<int>(end - begin)), m_firstRow(table.rows[begin].layout.get()) {
  FindEdges(table, begin, end);
  m_byPosition = m_edges.size() <= kMaxEdges && EdgesGiveEveryCellAColumn(table, begin, end);
  if (m_byPosition) {
    m_columns = static_cast<int>(m_edges.size()) - 1;
  } else {
    for (std::size_t i = begin; i < end; ++i) {
      m_columns = std::max(m_columns, static_cast<int>(table.rows[i].cells.size()));
    }
    TakeEdgesOfFullRow(table, begin, end);
  }
  m_columns = std::max(m_columns, 1);
  m_lastInColumn.assign(static_cast<std::size_t>(m_columns), -1);
  for (std::size_t i = begin; i < end; ++i) AddRow(table.rows[i], static_cast<int>(i - begin));
}

void TableGrid::FindEdges(const TableFlow& table, std::size_t begin, std::size_t end) {
  const RowLayout* previous = nullptr;
  for (std::size_t i = begin; i < end; ++i) {
    const RowLayout* layout = table.rows[i].layout.get();
    if (layout == previous || m_edges.size() > 20 * kMaxEdges) continue;
    previous = layout;
    for (const CellLayout& cell : layout->cells) m_edges.push_back(cell.right);
    m_edges.push_back(layout->left);
  }
  std::sort(m_edges.begin(), m_edges.end());
  const auto near = [](int a, int b) { return b - a <= kSameEdge; };
  m_edges.erase(std::unique(m_edges.begin(), m_edges.end(), near), m_edges.end());
}

// Where the edges of some rows make no sense, a row that has a cell in every column gives the widths.
void TableGrid::TakeEdgesOfFullRow(const TableFlow& table, std::size_t begin, std::size_t end) {
  m_edges.clear();
  for (std::size_t i = begin; i < end && m_edges.empty(); ++i) {
    const RowLayout& layout = *table.rows[i].layout;
    if (static_cast<int>(layout.cells.size()) != m_columns) continue;
    m_edges.push_back(layout.left);
    for (const CellLayout& cell : layout.cells) m_edges.push_back(cell.right);
    const auto tooNear = [](int a, int b) { return b - a <= kSameEdge; };
    if (std::adjacent_find(m_edges.begin(), m_edges.end(), tooNear) != m_edges.end()) m_edges.clear();
  }
}

int TableGrid::ColumnOf(int position) const {
  const auto above = std::upper_bound(m_edges.begin(), m_edges.end(), position);
  return std::max(0, static_cast<int>(above - m_edges.begin()) - 1);
}

bool TableGrid::EdgesGiveEveryCellAColumn(const TableFlow& table, std::size_t begin, std::size_t end) const {
  if (m_edges.size() < 2) return false;
  for (std::size_t i = begin; i < end; ++i) {
    int column = 0;
    const RowLayout& layout = *table.rows[i].layout;
    for (const CellLayout& cell : layout.cells) {
      const int right = ColumnOf(cell.right);
      if (right <= column) return false;
      column = right;
    }
  }
  return true;
}

void TableGrid::AddRow(const RowFlow& row, int index) {
  const RowLayout& layout = *row.layout;
  if (layout.header && m_headerRows == index) m_headerRows = index + 1;
  int column = 0;
  for (std::size_t i = 0, next = 0; i < row.cells.size() && column < m_columns; i = next) {
    for (next = i + 1; next < row.cells.size() && layout.cells[next].joinsLeft;) ++next;
    const bool last = next == row.cells.size();
    const int right = last           ? m_columns
                      : m_byPosition ? ColumnOf(layout.cells[next - 1].right)
                                     : column + static_cast<int>(next - i);
    Cell& cell = CellAt(index, column, right - column, layout.cells[i]);
    cell.rowHeight = cell.rowSpan == 1 ? layout.height : cell.rowHeight;
    for (std::size_t part = i; part < next; ++part) AddContent(cell, row.cells[part]);
    column = right;
  }
}

TableGrid::Cell& TableGrid::CellAt(int row, int column, int columnSpan, const CellLayout& layout) {
  const int above = m_lastInColumn[static_cast<std::size_t>(column)];
  if (layout.joinsAbove && above >= 0) {
    Cell& cell = m_cells[static_cast<std::size_t>(above)];
    if (cell.column == column && cell.columnSpan == columnSpan && cell.row + cell.rowSpan == row) {
      ++cell.rowSpan;
      cell.bottomLayout = &layout;
      return cell;
    }
  }
  std::fill_n(m_lastInColumn.begin() + column, columnSpan, static_cast<int>(m_cells.size()));
  m_cells.push_back({row, column, 1, columnSpan, &layout, nullptr, {}, 0});
  return m_cells.back();
}

// What covered cells hold is a mark without text, as a rule.
void TableGrid::AddContent(Cell& cell, const Flow& content) {
  if (cell.content.empty() || !content.text.isEmpty() || !content.tables.empty()) cell.content.push_back(&content);
}

QTextTableFormat TableGrid::Format() const {
  QTextTableFormat format;
  format.setCellSpacing(0);
  format.setBorder(0);
  format.setBorderCollapse(true);
  format.setCellPadding(Pixels(m_firstRow->gap));
  format.setAlignment(m_firstRow->alignment);
  format.setHeaderRowCount(m_headerRows);
  if (static_cast<int>(m_edges.size()) != m_columns + 1) return format;
  // The text of the first cell, not its edge, stands at the margin.
  format.setLeftMargin(Pixels(m_firstRow->left + m_firstRow->gap));
  QList<QTextLength> widths;
  for (std::size_t i = 1; i < m_edges.size(); ++i) {
    widths.append(QTextLength(QTextLength::FixedLength, Pixels(m_edges[i] - m_edges[i - 1])));
  }
  format.setColumnWidthConstraints(widths);
  SpreadTableFormat(format);
  return format;
}

QTextTableCellFormat TableGrid::CellFormat(const Cell& cell) {
  const CellLayout& layout = *cell.layout;
  const CellLayout& bottom = cell.bottomLayout ? *cell.bottomLayout : layout;
  using Format = QTextTableCellFormat;
  struct Side {
    void (Format::*width)(qreal);
    void (Format::*style)(QTextFrameFormat::BorderStyle);
    void (Format::*brush)(const QBrush&);
    void (Format::*padding)(qreal);
  };
  static constexpr Side kSides[kCellSides] = {
      {&Format::setTopBorder, &Format::setTopBorderStyle, &Format::setTopBorderBrush, &Format::setTopPadding},
      {&Format::setLeftBorder, &Format::setLeftBorderStyle, &Format::setLeftBorderBrush, &Format::setLeftPadding},
      {&Format::setBottomBorder, &Format::setBottomBorderStyle, &Format::setBottomBorderBrush,
       &Format::setBottomPadding},
      {&Format::setRightBorder, &Format::setRightBorderStyle, &Format::setRightBorderBrush, &Format::setRightPadding},
  };
  Format format;
  // The format takes the place of the one that holds the spans.
  format.setTableCellRowSpan(cell.rowSpan);
  format.setTableCellColumnSpan(cell.columnSpan);
  for (int i = 0; i < kCellSides; ++i) {
    const CellLayout& source = i == kCellBottom ? bottom : layout;
    const CellBorder& border = source.borders[static_cast<std::size_t>(i)];
    if (border.width > 0) {
      (format.*kSides[i].width)(std::max(1.0, Pixels(border.width)));
      (format.*kSides[i].style)(border.style);
      (format.*kSides[i].brush)(QBrush(QColor::fromRgba(border.colour)));
    }
    const int padding = source.padding[static_cast<std::size_t>(i)];
    if (padding > 0) (format.*kSides[i].padding)(Pixels(padding));
  }
  if (cell.rowHeight != 0) format.setProperty(kRowHeight, cell.rowHeight);
  if (qAlpha(layout.background)) format.setBackground(QColor::fromRgba(layout.background));
  if (layout.alignment != QTextCharFormat::AlignTop) format.setVerticalAlignment(layout.alignment);
  return format;
}

bool TableGrid::NeedsMerging(const TableFlow& table, std::size_t begin, std::size_t limit) {
  const std::size_t end = std::min(table.rows.size(), begin + limit);
  const RowLayout& first = *table.rows[begin].layout;
  for (std::size_t i = begin; i < end; ++i) {
    const RowLayout& layout = *table.rows[i].layout;
    if (HasMergedCells(layout) || (&layout != &first && !SameEdges(first, layout))) return true;
  }
  return false;
}

std::size_t TableGrid::ChunkEnd(const TableFlow& table, std::size_t begin, std::size_t limit) {
  const std::size_t rows = table.rows.size();
  if (rows - begin <= limit) return rows;
  std::size_t end = begin + limit;
  while (end < rows && end < begin + 2 * limit && GoesOnFromAbove(table.rows[end])) ++end;
  return end;
}

}  // namespace snipdeck

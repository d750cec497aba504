#pragma once

#include <vector>

#include "richtext/text_flow.h"

namespace snipdeck {

/// The regular grid that rows with cells of any width make: every left or right edge is a column boundary, and a cell
/// that reaches over several columns or rows is one cell with spans.
class TableGrid {
 public:
  struct Cell {
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
    const CellLayout* layout = nullptr;
    const CellLayout* bottomLayout = nullptr;  ///< Of the last row of a cell that spans rows.
    std::vector<const Flow*> content;
    int rowHeight = 0;  ///< As in RowLayout.
  };

  /// The rows [begin, end) of the table; at least one.
  TableGrid(const TableFlow& table, std::size_t begin, std::size_t end);

  int Rows() const { return m_rows; }
  int Columns() const { return m_columns; }
  const std::vector<Cell>& Cells() const { return m_cells; }
  QTextTableFormat Format() const;

  static QTextTableCellFormat CellFormat(const Cell& cell);
  /// Whether rows from `begin` on (looking at no more than `limit`) differ in their edges or have merged cells.
  static bool NeedsMerging(const TableFlow& table, std::size_t begin, std::size_t limit);
  /// Where a piece of no more than about `limit` rows ends; never inside cells that are merged downwards, if it can be
  /// helped.
  static std::size_t ChunkEnd(const TableFlow& table, std::size_t begin, std::size_t limit);

 private:
  void FindEdges(const TableFlow& table, std::size_t begin, std::size_t end);
  void TakeEdgesOfFullRow(const TableFlow& table, std::size_t begin, std::size_t end);
  bool EdgesGiveEveryCellAColumn(const TableFlow& table, std::size_t begin, std::size_t end) const;
  int ColumnOf(int position) const;
  void AddRow(const RowFlow& row, int index);
  /// The cell that begins at `column`, or that of the rows above which goes on there.
  Cell& CellAt(int row, int column, int columnSpan, const CellLayout& layout);
  static void AddContent(Cell& cell, const Flow& content);

  int m_rows = 0;
  int m_columns = 0;
  bool m_byPosition = true;
  std::vector<int> m_edges;
  std::vector<Cell> m_cells;
  std::vector<int> m_lastInColumn;  ///< Index of the cell that covers a column in the row above; -1 none.
  const RowLayout* m_firstRow = nullptr;
  int m_headerRows = 0;
};

}  // namespace snipdeck

#pragma once

#include <memory>
#include <vector>

#include "richtext/docx/docx_styles.h"
#include "richtext/text_flow.h"

namespace snipdeck {

class DocxBody;

/// Reads one table of a story.
class DocxTable {
 public:
  explicit DocxTable(DocxBody& body) : m_body(body) {}

  /// Up to the end of the table; null when it has no rows.
  std::unique_ptr<TableFlow> Read(XmlPart& xml);

 private:
  using Borders = std::array<std::optional<CellBorder>, kCellSides + 2>;
  struct Cell {
    CellLayout layout;
    Borders borders;
    int span = 1;
    int width = 0;  ///< Twips; 0 where it does not say.
    Flow content;
  };
  struct Row {
    std::vector<Cell> cells;
    int skippedBefore = 0;  ///< Columns of the grid.
    bool header = false;
    bool deleted = false;
  };

  void Children(XmlPart& xml, Row* row);
  void ReadProperties(XmlPart& xml);
  void ReadGrid(XmlPart& xml);
  void ReadRow(XmlPart& xml);
  void ReadRowProperties(XmlPart& xml, Row& row);
  void ReadCell(XmlPart& xml, Row& row);
  void ReadCellProperties(XmlPart& xml, Cell& cell);
  RowFlow Finished(Row& row, std::size_t index) const;
  bool HasWholeGrid() const;
  void PlaceCells(Row& row, RowLayout& layout) const;
  void SetBorders(Cell& cell, std::size_t row, std::size_t column, std::size_t columns) const;

  DocxBody& m_body;
  DocxTableFormat m_format;
  std::vector<int> m_grid;  ///< Widths of the columns in twips.
  bool m_hasWholeGrid = true;
  std::vector<Row> m_rows;
};

}  // namespace snipdeck

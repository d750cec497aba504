#pragma once

#include "richtext/rtf/rtf_colours.h"
#include "richtext/text_flow.h"

namespace snipdeck {

/// The row definition that \trowd begins. It holds for all rows until the next one.
class RtfRows {
 public:
  explicit RtfRows(const RtfColours& colours) : m_colours(colours) {}

  void Begin();
  void CellEdge(int twips);
  void SetLeft(int twips) { m_row.left = twips; }
  void SetGap(int twips) { m_row.gap = twips; }
  void SetHeight(int twips) { m_row.height = twips; }
  void SetHeader(int) { m_row.header = true; }
  void AlignLeft(int) { m_row.alignment = Qt::AlignLeft; }
  void AlignCentre(int) { m_row.alignment = Qt::AlignHCenter; }
  void AlignRight(int) { m_row.alignment = Qt::AlignRight; }
  void JoinLeft(int) { m_cell.joinsLeft = true; }
  void JoinAbove(int) { m_cell.joinsAbove = true; }
  void TextTop(int) { m_cell.alignment = QTextCharFormat::AlignTop; }
  void TextMiddle(int) { m_cell.alignment = QTextCharFormat::AlignMiddle; }
  void TextBottom(int) { m_cell.alignment = QTextCharFormat::AlignBottom; }
  void Background(int colour) { m_background = colour; }
  void ShadeForeground(int colour) { m_shadeForeground = colour; }
  void ShadePercent(int hundredths) { m_shadePercent = hundredths; }
  template <CellSide Side>
  void Padding(int twips) {
    m_cell.padding[Side] = twips;
  }

  /// Which border the border words that follow describe: one of the cell's or, with `ofRow`, of all cells of the row.
  template <CellSide Side>
  void SelectCellBorder(int) {
    m_border = &m_cell.borders[Side];
  }
  template <CellSide Side>
  void SelectRowBorder(int) {
    m_border = &m_rowBorders[Side];
  }
  void SelectInnerHorizontal(int) { m_border = &m_inner[0]; }
  void SelectInnerVertical(int) { m_border = &m_inner[1]; }
  /// Words that describe the border selected last; false when none is.
  bool BorderStyle(QTextFrameFormat::BorderStyle style);
  bool BorderWidth(int twips);
  bool BorderColour(int index);
  void SelectNothing(int) { m_border = nullptr; }
  void SelectNoBorder() { m_border = nullptr; }

  /// The definition for a row that has `cells` cells: missing ones are added.
  std::shared_ptr<const RowLayout> Layout(std::size_t cells);
  bool IsEmpty() const { return m_row.cells.empty(); }

 private:
  void ApplyRowBorders(RowLayout& row) const;

  const RtfColours& m_colours;
  RowLayout m_row;
  CellLayout m_cell;
  int m_background = 0;
  int m_shadeForeground = 0;
  int m_shadePercent = 0;
  std::array<CellBorder, kCellSides> m_rowBorders;
  std::array<CellBorder, 2> m_inner;
  CellBorder* m_border = nullptr;
  std::shared_ptr<const RowLayout> m_shared;
};

}  // namespace snipdeck

#include "richtext/rtf/rtf_rows.h"

namespace snipdeck {
namespace {

constexpr std::size_t kMaxCells = 256;
constexpr int kUnsaidCellWidth = 1440;
constexpr int kThinnestBorder = 15;

bool SameCell(const CellLayout& a, const CellLayout& b) {
  return a.right == b.right && a.background == b.background && a.borders == b.borders && a.padding == b.padding &&
         a.joinsLeft == b.joinsLeft && a.joinsAbove == b.joinsAbove && a.alignment == b.alignment;
}

bool SameRow(const RowLayout& a, const RowLayout& b) {
  return a.left == b.left && a.gap == b.gap && a.alignment == b.alignment && a.header == b.header && a.height == b.height &&
         std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(), SameCell);
}

}  // namespace

void RtfRows::Begin() {
  m_row = {};
  m_cell = {};
  m_background = m_shadeForeground = m_shadePercent = 0;
  m_rowBorders = {};
  m_inner = {};
  m_border = nullptr;
}

void RtfRows::CellEdge(int twips) {
  if (m_row.cells.size() < kMaxCells) {
    m_cell.right = twips;
    m_cell.background = m_colours.Shade(m_background, m_shadeForeground, m_shadePercent);
    m_row.cells.push_back(m_cell);
  }
  m_cell = {};
  m_background = m_shadeForeground = m_shadePercent = 0;
  m_border = nullptr;
}

bool RtfRows::BorderStyle(QTextFrameFormat::BorderStyle style) {
  if (!m_border) return false;
  m_border->style = style;
  m_border->width =
      style == QTextFrameFormat::BorderStyle_None ? 0 : std::max<std::int16_t>(m_border->width, kThinnestBorder);
  return true;
}

bool RtfRows::BorderWidth(int twips) {
  if (!m_border) return false;
  m_border->width = static_cast<std::int16_t>(std::clamp(twips, 0, 255));
  return true;
}

bool RtfRows::BorderColour(int index) {
  if (!m_border) return false;
  const QRgb colour = m_colours.Find(index);
  if (qAlpha(colour)) m_border->colour = colour;
  return true;
}

std::shared_ptr<const RowLayout> RtfRows::Layout(std::size_t cells) {
  RowLayout row = m_row;
  while (row.cells.size() < cells) {
    CellLayout added;
    added.right = (row.cells.empty() ? row.left : row.cells.back().right) + kUnsaidCellWidth;
    row.cells.push_back(added);
  }
  ApplyRowBorders(row);
  if (!m_shared || !SameRow(*m_shared, row)) m_shared = std::make_shared<const RowLayout>(std::move(row));
  return m_shared;
}

// Borders of the row hold where the cell itself has none.
void RtfRows::ApplyRowBorders(RowLayout& row) const {
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    auto& borders = row.cells[i].borders;
    const auto fill = [&](CellSide side, const CellBorder& from) {
      if (borders[side].width == 0) borders[side] = from;
    };
    fill(kCellTop, m_rowBorders[kCellTop]);
    fill(kCellBottom, m_rowBorders[kCellBottom]);
    fill(kCellLeft, i == 0 ? m_rowBorders[kCellLeft] : m_inner[1]);
    fill(kCellRight, i + 1 == row.cells.size() ? m_rowBorders[kCellRight] : m_inner[1]);
    fill(kCellTop, m_inner[0]);
    fill(kCellBottom, m_inner[0]);
  }
}

}  // namespace snipdeck

#include "richtext/docx/docx_table.h"

#include <algorithm>
#include <utility>

#include "richtext/docx/docx_body.h"

namespace snipdeck {
namespace {

constexpr std::size_t kMostColumns = 256;
constexpr int kUnsaidWidth = 1440;
constexpr int kNarrowest = 30;
constexpr int kUsualPadding = 108;  // twips left and right, where nothing says otherwise

QTextCharFormat::VerticalAlignment PlaceInCell(const QString& word) {
  if (word == QLatin1String("center")) return QTextCharFormat::AlignMiddle;
  return word == QLatin1String("bottom") ? QTextCharFormat::AlignBottom : QTextCharFormat::AlignTop;
}

}  // namespace

std::unique_ptr<TableFlow> DocxTable::Read(XmlPart& xml) {
  const QTextCharFormat outerRun = m_body.m_tableRun;
  const QTextBlockFormat outerParagraph = m_body.m_tableParagraph;
  m_format = m_body.m_context.styles.Table(QString()).table;
  Children(xml, nullptr);
  m_body.m_tableRun = outerRun;
  m_body.m_tableParagraph = outerParagraph;
  auto table = std::make_unique<TableFlow>();
  m_hasWholeGrid = HasWholeGrid();
  for (std::size_t i = 0; i < m_rows.size(); ++i) table->rows.push_back(Finished(m_rows[i], i));
  return table->rows.empty() ? nullptr : std::move(table);
}

/// Rows of the table, or cells of `row`, also where something else stands around them.
void DocxTable::Children(XmlPart& xml, Row* row) {
  while (!m_body.IsCancelled() && xml.readNextStartElement()) {
    if (xml.Is("tr") && !row) {
      ReadRow(xml);
    } else if (xml.Is("tc") && row) {
      ReadCell(xml, *row);
    } else if (xml.Is("tblPr") && !row) {
      ReadProperties(xml);
    } else if (xml.Is("tblGrid") && !row) {
      ReadGrid(xml);
    } else if (xml.Is("trPr") && row) {
      ReadRowProperties(xml, *row);
    } else if (xml.Is("sdt") || xml.Is("sdtContent") || xml.Is("customXml") || xml.Is("ins")) {
      Children(xml, row);
    } else {
      xml.skipCurrentElement();
    }
  }
}

void DocxTable::ReadProperties(XmlPart& xml) {
  DocxTableFormat own;
  while (xml.readNextStartElement()) {
    if (xml.Is("tblStyle")) {
      const DocxStyles::Style& style = m_body.m_context.styles.Table(xml.Value());
      m_format.Merge(style.table);
      m_body.m_tableRun.merge(style.run);
      m_body.m_tableParagraph.merge(style.paragraph);
    }
    own.ReadProperty(xml);
  }
  m_format.Merge(own);
}

void DocxTable::ReadGrid(XmlPart& xml) {
  while (xml.readNextStartElement()) {
    if (xml.Is("gridCol") && m_grid.size() < kMostColumns)
      m_grid.push_back(std::clamp(xml.Twips("w", kUnsaidWidth), kNarrowest, 31'680));
    xml.skipCurrentElement();
  }
}

void DocxTable::ReadRow(XmlPart& xml) {
  Row row;
  Children(xml, &row);
  if (!row.deleted && !row.cells.empty()) m_rows.push_back(std::move(row));
}

void DocxTable::ReadRowProperties(XmlPart& xml, Row& row) {
  while (xml.readNextStartElement()) {
    if (xml.Is("gridBefore")) row.skippedBefore = std::clamp(xml.Number(), 0, 200);
    if (xml.Is("tblHeader")) row.header = xml.IsOn();
    if (xml.Is("del")) row.deleted = true;
    xml.skipCurrentElement();
  }
}

void DocxTable::ReadCell(XmlPart& xml, Row& row) {
  Cell cell;
  // The properties come first; what follows them is read as any text.
  if (xml.readNextStartElement()) {
    if (xml.Is("tcPr")) {
      ReadCellProperties(xml, cell);
    } else {
      Flow* const outer = std::exchange(m_body.m_flow, &cell.content);
      m_body.Deeper(xml, &DocxBody::Block);
      m_body.m_flow = outer;
    }
    cell.content.Append(m_body.NestedFlow(xml));
  }
  if (row.cells.size() < kMostColumns) {
    row.cells.push_back(std::move(cell));
  } else {
    row.cells.back().content.Append(std::move(cell.content));
  }
}

void DocxTable::ReadCellProperties(XmlPart& xml, Cell& cell) {
  while (xml.readNextStartElement()) {
    if (xml.Is("tcBorders")) {
      ReadBorders(xml, cell.borders);
      continue;
    }
    if (xml.Is("tcMar")) {
      std::array<std::optional<int>, kCellSides> padding;
      ReadPadding(xml, padding);
      for (std::size_t i = 0; i < padding.size(); ++i) cell.layout.padding[i] = padding[i].value_or(0);
      continue;
    }
    const QString value = xml.Value();
    if (xml.Is("tcW") && xml.Value("type") != QLatin1String("pct")) cell.width = std::clamp(xml.Twips("w"), 0, 31'680);
    if (xml.Is("gridSpan")) cell.span = std::clamp(xml.Number("val", 1), 1, 200);
    if (xml.Is("vMerge")) cell.layout.joinsAbove = value != QLatin1String("restart");
    if (xml.Is("hMerge")) cell.layout.joinsLeft = value != QLatin1String("restart");
    if (xml.Is("vAlign")) cell.layout.alignment = PlaceInCell(value);
    if (xml.Is("shd")) {
      const QColor colour = ReadShading(xml);
      if (colour.isValid()) cell.layout.background = colour.rgb();
    }
    xml.skipCurrentElement();
  }
}

RowFlow DocxTable::Finished(Row& row, std::size_t index) const {
  auto layout = std::make_shared<RowLayout>();
  layout->gap = m_format.padding[kCellLeft].value_or(kUsualPadding);
  layout->left = m_format.indent.value_or(0) - layout->gap;
  layout->alignment = m_format.alignment.value_or(Qt::AlignLeft);
  layout->header = row.header;
  PlaceCells(row, *layout);
  RowFlow flow;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    Cell& cell = row.cells[i];
    SetBorders(cell, index, i, row.cells.size());
    layout->cells.push_back(cell.layout);
    flow.cells.push_back(std::move(cell.content));
  }
  flow.layout = std::move(layout);
  return flow;
}

/// The grid holds where it has a column for each cell; some programs write one that has not.
bool DocxTable::HasWholeGrid() const {
  return std::all_of(m_rows.begin(), m_rows.end(), [this](const Row& row) {
    std::size_t columns = static_cast<std::size_t>(row.skippedBefore);
    for (const Cell& cell : row.cells) columns += static_cast<std::size_t>(cell.span);
    return columns <= m_grid.size();
  });
}

/// Edges come from the grid, or else from the cells' own widths.
void DocxTable::PlaceCells(Row& row, RowLayout& layout) const {
  std::size_t column = 0;
  int edge = layout.left;
  const auto advance = [&](int span, int width) {
    for (int i = 0; i < span; ++i, ++column) {
      const bool isInGrid = column < m_grid.size() && (m_hasWholeGrid || width == 0);
      edge += isInGrid ? m_grid[column] : width > 0 ? std::max(width / span, kNarrowest) : kUnsaidWidth;
    }
  };
  advance(row.skippedBefore, 0);
  layout.left = edge;
  for (Cell& cell : row.cells) {
    advance(cell.span, cell.width);
    cell.layout.right = edge;
  }
}

// The lines of the table hold where the cell says nothing.
void DocxTable::SetBorders(Cell& cell, std::size_t row, std::size_t column, std::size_t columns) const {
  const auto set = [&](CellSide side, bool isOuter, int inner) {
    const auto& own = cell.borders[side];
    const auto& ofTable = m_format.borders[isOuter ? static_cast<std::size_t>(side) : static_cast<std::size_t>(inner)];
    if (own || ofTable) cell.layout.borders[side] = own ? *own : *ofTable;
  };
  set(kCellTop, row == 0, DocxTableFormat::kInnerHorizontal);
  set(kCellBottom, row + 1 == m_rows.size(), DocxTableFormat::kInnerHorizontal);
  set(kCellLeft, column == 0, DocxTableFormat::kInnerVertical);
  set(kCellRight, column + 1 == columns, DocxTableFormat::kInnerVertical);
}

}  // namespace snipdeck

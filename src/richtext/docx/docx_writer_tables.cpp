#include "richtext/docx/docx_writer_tables.h"

#include <algorithm>
#include <cmath>

#include "richtext/docx/docx_values.h"
#include "richtext/docx/docx_writer_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {
namespace {

constexpr int kThickest = 96;  // eighths of a point

void WriteWidth(XmlOut& out, const char* element, int twips) {
  out.Empty(element);
  out.Attribute("w:w", twips);
  out.Attribute("w:type", QStringLiteral("dxa"));
}

/// Qt counts the sides of a cell's properties top, bottom, left, right.
constexpr int kTop = 0, kBottom = 1, kLeft = 2, kRight = 3;

/// A cell's own line, else the table's; nothing where there is none.
void WriteLine(XmlOut& out, const char* element, int side, const QTextFormat& cell, const QTextTableFormat& table) {
  const bool own = cell.hasProperty(QTextFormat::TableCellTopBorderStyle + side);
  const double width = own ? cell.doubleProperty(QTextFormat::TableCellTopBorder + side) : table.border();
  const int style =
      own ? cell.intProperty(QTextFormat::TableCellTopBorderStyle + side) : static_cast<int>(table.borderStyle());
  if (style == QTextFrameFormat::BorderStyle_None || width <= 0) return;
  const QBrush brush = own ? cell.brushProperty(QTextFormat::TableCellTopBorderBrush + side) : table.borderBrush();
  out.Value(element, WordForBorder(static_cast<QTextFrameFormat::BorderStyle>(style)));
  out.Attribute("w:sz", std::clamp(static_cast<int>(std::lround(TwipsFromLength(width) / 2.5)), 2, kThickest));
  out.Attribute("w:space", 0);
  out.Attribute("w:color", brush.style() == Qt::NoBrush ? QStringLiteral("auto") : WordForColour(brush.color()));
}

void WriteLines(XmlOut& out, const QTextFormat& cell, const QTextTableFormat& table) {
  out.Start("w:tcBorders");
  WriteLine(out, "w:top", kTop, cell, table);
  WriteLine(out, "w:left", kLeft, cell, table);
  WriteLine(out, "w:bottom", kBottom, cell, table);
  WriteLine(out, "w:right", kRight, cell, table);
  out.End();
}

void WritePaddings(XmlOut& out, const QTextFormat& cell) {
  static constexpr std::pair<const char*, int> kSides[] = {{"w:top", QTextFormat::TableCellTopPadding},
                                                           {"w:left", QTextFormat::TableCellLeftPadding},
                                                           {"w:bottom", QTextFormat::TableCellBottomPadding},
                                                           {"w:right", QTextFormat::TableCellRightPadding}};
  const auto has = [&](const auto& side) { return cell.hasProperty(side.second); };
  if (std::none_of(std::begin(kSides), std::end(kSides), has)) return;
  out.Start("w:tcMar");
  for (const auto& [element, property] : kSides) {
    if (cell.hasProperty(property)) WriteWidth(out, element, TwipsFromLength(cell.doubleProperty(property)));
  }
  out.End();
}

}  // namespace

void WriteTableStart(XmlOut& out, const QTextTable& table, const QList<int>& edges) {
  const QTextTableFormat format = table.format();
  const int padding = TwipsFromLength(format.cellPadding());
  out.Start("w:tblPr");
  WriteWidth(out, "w:tblW", edges.isEmpty() ? 0 : edges.last());
  if (format.alignment() & Qt::AlignHCenter) out.Value("w:jc", "center");
  if (format.alignment() & Qt::AlignRight) out.Value("w:jc", "right");
  WriteWidth(out, "w:tblInd", TwipsFromLength(format.leftMargin()));
  out.Empty("w:tblLayout");
  out.Attribute("w:type", QStringLiteral("fixed"));
  out.Start("w:tblCellMar");
  WriteWidth(out, "w:left", padding);
  WriteWidth(out, "w:right", padding);
  out.End();
  out.End();
  out.Start("w:tblGrid");
  for (qsizetype i = 0; i < edges.size(); ++i) {
    out.Empty("w:gridCol");
    out.Attribute("w:w", edges[i] - (i > 0 ? edges[i - 1] : 0));
  }
  out.End();
}

void WriteRowProperties(XmlOut& out, const QTextTable& table, int row) {
  if (row >= table.format().headerRowCount()) return;
  out.Start("w:trPr");
  out.Empty("w:tblHeader");
  out.End();
}

void WriteCellProperties(XmlOut& out, const QTextTable& table, const QTextTableCell& cell, int row,
                         const QList<int>& edges) {
  const QTextTableCellFormat format = cell.format().toTableCellFormat();
  const int last = std::min<int>(cell.column() + cell.columnSpan(), static_cast<int>(edges.size())) - 1;
  out.Start("w:tcPr");
  WriteWidth(out, "w:tcW", edges[last] - (cell.column() > 0 ? edges[cell.column() - 1] : 0));
  if (cell.columnSpan() > 1) out.Value("w:gridSpan", cell.columnSpan());
  if (cell.rowSpan() > 1) out.Value("w:vMerge", cell.row() == row ? "restart" : "continue");
  WriteLines(out, format, table.format());
  WriteShading(out, format.background());
  WritePaddings(out, format);
  if (format.verticalAlignment() == QTextCharFormat::AlignMiddle) out.Value("w:vAlign", "center");
  if (format.verticalAlignment() == QTextCharFormat::AlignBottom) out.Value("w:vAlign", "bottom");
  out.End();
}

}  // namespace snipdeck

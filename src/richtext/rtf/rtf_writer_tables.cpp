#include "richtext/rtf/rtf_writer_tables.h"

#include <QTextDocument>
#include <QTextFrame>

#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/paragraph_borders.h"

namespace snipdeck {
namespace {

constexpr int kDefaultTextWidth = 9360;
constexpr int kNarrowestColumn = 30;
constexpr int kThickestLine = 255;

struct Line {
  QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_None;
  double width = 0;  ///< pixels
  QBrush brush;
};

void WriteLine(RtfOutput& out, RtfHeader& header, const char* side, const Line& line) {
  if (line.style == QTextFrameFormat::BorderStyle_None || line.width <= 0) return;
  out.Word(side);
  out.Word(BorderWord(line.style));
  out.Word("brdrw", std::clamp(TwipsFromLength(line.width), 1, kThickestLine));
  if (line.brush.style() != Qt::NoBrush) out.Word("brdrcf", header.Colour(line.brush.color()));
}

/// A cell's line where it has one of its own, else the table's.
Line CellLine(const QTextTableCellFormat& cell, const QTextTableFormat& table, int widthProperty, int styleProperty,
              int brushProperty) {
  if (!cell.hasProperty(styleProperty)) return {table.borderStyle(), table.border(), table.borderBrush()};
  return {static_cast<QTextFrameFormat::BorderStyle>(cell.intProperty(styleProperty)),
          cell.doubleProperty(widthProperty), cell.brushProperty(brushProperty)};
}

void WriteCellLines(RtfOutput& out, RtfHeader& header, const QTextTableCellFormat& cell,
                    const QTextTableFormat& table) {
  using Format = QTextFormat;
  WriteLine(out, header, "clbrdrt",
            CellLine(cell, table, Format::TableCellTopBorder, Format::TableCellTopBorderStyle,
                     Format::TableCellTopBorderBrush));
  WriteLine(out, header, "clbrdrl",
            CellLine(cell, table, Format::TableCellLeftBorder, Format::TableCellLeftBorderStyle,
                     Format::TableCellLeftBorderBrush));
  WriteLine(out, header, "clbrdrb",
            CellLine(cell, table, Format::TableCellBottomBorder, Format::TableCellBottomBorderStyle,
                     Format::TableCellBottomBorderBrush));
  WriteLine(out, header, "clbrdrr",
            CellLine(cell, table, Format::TableCellRightBorder, Format::TableCellRightBorderStyle,
                     Format::TableCellRightBorderBrush));
}

void WritePadding(RtfOutput& out, const QTextTableCellFormat& cell) {
  const auto side = [&](int property, const char* word, const char* unitWord) {
    if (!cell.hasProperty(property)) return;
    out.Word(word, TwipsFromLength(cell.doubleProperty(property)));
    out.Word(unitWord, 3);
  };
  // Word processors agree to take the left padding from the word for the top, and the other way round.
  side(QTextFormat::TableCellLeftPadding, "clpadt", "clpadft");
  side(QTextFormat::TableCellTopPadding, "clpadl", "clpadfl");
  side(QTextFormat::TableCellBottomPadding, "clpadb", "clpadfb");
  side(QTextFormat::TableCellRightPadding, "clpadr", "clpadfr");
}

void WriteCellDefinition(RtfOutput& out, RtfHeader& header, const QTextTable& table, const QTextTableCell& cell,
                         int row) {
  const QTextTableCellFormat format = cell.format().toTableCellFormat();
  if (cell.rowSpan() > 1) out.Word(cell.row() == row ? "clvmgf" : "clvmrg");
  if (format.verticalAlignment() == QTextCharFormat::AlignMiddle) out.Word("clvertalc");
  if (format.verticalAlignment() == QTextCharFormat::AlignBottom) out.Word("clvertalb");
  WriteCellLines(out, header, format, table.format());
  WritePadding(out, format);
  const QBrush shading = format.background();
  if (shading.style() != Qt::NoBrush && shading.color().alpha()) out.Word("clcbpat", header.Colour(shading.color()));
}

/// Files count from the edge of the first cell, whose text stands at the margin.
int LeftEdge(const QTextTableFormat& format) {
  return TwipsFromLength(format.leftMargin()) - TwipsFromLength(format.cellPadding());
}

/// That of a cell which begins in the row.
int RowHeight(const QTextTable& table, int row) {
  for (int column = 0; column < table.columns(); ++column) {
    const QTextTableCell cell = table.cellAt(row, column);
    if (cell.row() == row) return cell.format().intProperty(kRowHeight);
  }
  return 0;
}

void WriteRowPlace(RtfOutput& out, const QTextTable& table, int row) {
  const QTextTableFormat format = table.format();
  out.Word("trowd");
  out.Word("trgaph", TwipsFromLength(format.cellPadding()));
  out.Word("trleft", LeftEdge(format));
  if (format.alignment() & Qt::AlignHCenter) out.Word("trqc");
  if (format.alignment() & Qt::AlignRight) out.Word("trqr");
  if (row < format.headerRowCount()) out.Word("trhdr");
  if (const int height = RowHeight(table, row)) out.Word("trrh", height);
}

int FixedTwips(const QTextLength& length, int whole) {
  switch (length.type()) {
    case QTextLength::FixedLength:
      return TwipsFromLength(length.rawValue());
    case QTextLength::PercentageLength:
      return static_cast<int>(whole * std::clamp(length.rawValue(), 0.0, 100.0) / 100);
    default:
      return 0;
  }
}

}  // namespace

int TextWidthTwips(const QTextDocument& document) {
  const QTextFrameFormat format = document.rootFrame()->frameFormat();
  const int width =
      format.intProperty(kPageWidth) - format.intProperty(kPageMarginLeft) - format.intProperty(kPageMarginRight);
  return width > 0 ? width : kDefaultTextWidth;
}

namespace {

/// The right edges of the columns, in twips from the table's left edge.
QList<int> ColumnEdges(const QTextTable& table, int textWidthTwips) {
  const QTextTableFormat format = table.format();
  const QList<QTextLength> constraints = format.columnWidthConstraints();
  const int tableWidth = FixedTwips(format.width(), textWidthTwips);
  const int whole = tableWidth > 0 ? tableWidth : textWidthTwips;
  QList<int> widths(table.columns());
  int used = 0, open = 0;
  for (int column = 0; column < widths.size(); ++column) {
    widths[column] = FixedTwips(constraints.value(column), whole);
    used += widths[column];
    open += widths[column] <= 0;
  }
  const int share = open ? std::max((whole - used) / open, kNarrowestColumn) : 0;
  int edge = 0;
  for (int& width : widths) {
    edge += width > 0 ? width : share;
    width = edge;
  }
  return widths;
}

/// Whether there is a column whose edge no cell has for its own.
bool SpansNeedNames(const QTextTable& table) {
  QList<bool> isSeen(table.columns(), false);
  for (int row = 0; row < table.rows(); ++row) {
    for (int column = 0; column < table.columns();) {
      const QTextTableCell cell = table.cellAt(row, column);
      column = std::max(column + 1, cell.column() + cell.columnSpan());
      isSeen[column - 1] = true;
    }
    if (!isSeen.contains(false)) return false;
  }
  return true;
}

}  // namespace

TableShape ShapeOf(const QTextTable& table, int textWidthTwips) {
  return {ColumnEdges(table, textWidthTwips), SpansNeedNames(table)};
}

void WriteRowDefinition(RtfOutput& out, RtfHeader& header, const QTextTable& table, int row, const TableShape& shape) {
  const QTextTableFormat format = table.format();
  const int left = LeftEdge(format);
  WriteRowPlace(out, table, row);
  for (int column = 0; column < table.columns();) {
    const QTextTableCell cell = table.cellAt(row, column);
    const int end = std::max(column + 1, cell.column() + cell.columnSpan());
    const bool splits = shape.spansAreNamed && end - column > 1;
    if (splits) out.Word("clmgf");
    WriteCellDefinition(out, header, table, cell, row);
    if (!splits) column = end - 1;
    out.Word("cellx", left + shape.edges[column]);
    while (++column < end) {
      out.Word("clmrg");
      out.Word("cellx", left + shape.edges[column]);
    }
  }
  out.LineEnd();
}

}  // namespace snipdeck

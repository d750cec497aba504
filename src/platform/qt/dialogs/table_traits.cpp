#include "platform/qt/dialogs/table_traits.h"

#include <numeric>

#include <QTextDocument>
#include <QTextTable>

#include "platform/units.h"
#include "richtext/document_page.h"

namespace snipdeck {
namespace {

double TextWidth(const QTextTable& table) {
  const PageGeometry page = PageOf(*table.document());
  return (page.width - page.left - page.right) / kTwipsPerPixel;
}

double PixelsOf(const QTextLength& width, double whole, int columns) {
  if (width.type() == QTextLength::FixedLength) return width.rawValue();
  return width.type() == QTextLength::PercentageLength ? whole * width.rawValue() / 100 : whole / columns;
}

QList<double> WidthsOf(const QTextTable& table) {
  const QList<QTextLength> given = table.format().columnWidthConstraints();
  QList<double> widths;
  for (int column = 0; column < table.columns(); ++column)
    widths << PixelsOf(given.value(column), TextWidth(table), table.columns());
  return widths;
}

void SetWidths(QTextTable& table, const QList<double>& widths) {
  QList<QTextLength> lengths;
  for (const double width : widths) lengths << QTextLength(QTextLength::FixedLength, width);
  QTextTableFormat format = table.format();
  format.setColumnWidthConstraints(lengths);
  table.setFormat(format);
}

bool IsIn(const QTextTableCell& cell, const QTextTableCell& caret, TableScope scope) {
  if (scope == TableScope::Table) return true;
  if (scope == TableScope::Row) return cell.row() == caret.row();
  if (scope == TableScope::Column) return cell.column() == caret.column();
  return cell == caret;
}

void SetCell(QTextTableCell& cell, const TableTraits& before, const TableTraits& after) {
  QTextTableCellFormat format = cell.format().toTableCellFormat();
  if (after.lines != before.lines) SetLines(format, after.lines);
  if (after.distance != before.distance) format.setPadding(after.distance);
  if (after.shading != before.shading) {
    after.shading.isValid() ? format.setBackground(after.shading) : format.clearBackground();
  }
  cell.setFormat(format);
}

// A table that filled the width between the margins still does so with another number of columns.
void KeepWidth(QTextTable& table, double before) {
  QList<double> widths = WidthsOf(table);
  const double now = std::accumulate(widths.begin(), widths.end(), 0.0);
  if (now <= 0) return;
  for (double& width : widths) width *= before / now;
  SetWidths(table, widths);
}

void GiveLook(QTextTable& table, const QTextTableCellFormat& look, int row, int column) {
  QTextTableCell cell = table.cellAt(row, column);
  QTextTableCellFormat format = look;
  format.setTableCellRowSpan(cell.rowSpan());
  format.setTableCellColumnSpan(cell.columnSpan());
  cell.setFormat(format);
}

void InsertRows(QTextTable& table, const QTextTableCell& caret, int at, int count) {
  const QTextTableCellFormat look = caret.format().toTableCellFormat();
  table.insertRows(at, count);
  for (int row = at; row < at + count; ++row)
    for (int column = 0; column < table.columns(); ++column) GiveLook(table, look, row, column);
}

void InsertColumns(QTextTable& table, const QTextTableCell& caret, int at, int count) {
  const QTextTableCellFormat look = caret.format().toTableCellFormat();
  const QList<double> widths = WidthsOf(table);
  table.insertColumns(at, count);
  for (int row = 0; row < table.rows(); ++row)
    for (int column = at; column < at + count; ++column) GiveLook(table, look, row, column);
  KeepWidth(table, std::accumulate(widths.begin(), widths.end(), 0.0));
}

}  // namespace

TableTraits TraitsOf(const QTextTable& table, const QTextCursor& cursor) {
  const QTextTableCell cell = table.cellAt(cursor);
  const QTextTableCellFormat format = cell.format().toTableCellFormat();
  TableTraits traits;
  traits.alignment = table.format().alignment() & Qt::AlignHorizontal_Mask;
  traits.columnWidth = WidthsOf(table).value(cell.column());
  traits.distance = format.hasProperty(QTextFormat::TableCellLeftPadding) ? format.leftPadding()
                                                                          : table.format().cellPadding();
  traits.lines = LinesOf(format);
  const QBrush shading = format.background();
  if (shading.style() != Qt::NoBrush) traits.shading = shading.color();
  return traits;
}

void ApplyTableTraits(QTextTable& table, const QTextCursor& cursor, const TableTraits& before, const TableTraits& after,
                      TableScope scope) {
  const QTextTableCell caret = table.cellAt(cursor);
  if (after.alignment != before.alignment) {
    QTextTableFormat format = table.format();
    format.setAlignment(after.alignment);
    table.setFormat(format);
  }
  if (after.columnWidth != before.columnWidth) {
    QList<double> widths = WidthsOf(table);
    widths[caret.column()] = after.columnWidth;
    SetWidths(table, widths);
  }
  for (int row = 0; row < table.rows(); ++row) {
    for (int column = 0; column < table.columns(); ++column) {
      QTextTableCell cell = table.cellAt(row, column);
      const bool isCorner = cell.row() == row && cell.column() == column;
      if (isCorner && IsIn(cell, caret, scope)) SetCell(cell, before, after);
    }
  }
}

void ShareWidth(QTextTable& table) {
  SetWidths(table, QList<double>(table.columns(), TextWidth(table) / table.columns()));
}

void ChangeTable(QTextTable& table, const QTextCursor& cursor, TableChange change, int count) {
  const QTextTableCell caret = table.cellAt(cursor);
  switch (change) {
    case TableChange::RowsAbove:
      return InsertRows(table, caret, caret.row(), count);
    case TableChange::RowsBelow:
      return InsertRows(table, caret, caret.row() + caret.rowSpan(), count);
    case TableChange::ColumnsBefore:
      return InsertColumns(table, caret, caret.column(), count);
    case TableChange::ColumnsAfter:
      return InsertColumns(table, caret, caret.column() + caret.columnSpan(), count);
    case TableChange::RemoveRow:
      return table.removeRows(caret.row(), caret.rowSpan());
    case TableChange::RemoveColumn:
      return table.removeColumns(caret.column(), caret.columnSpan());
    case TableChange::RemoveTable:
      return table.removeRows(0, table.rows());
    case TableChange::None:
      return;
  }
}

}  // namespace snipdeck

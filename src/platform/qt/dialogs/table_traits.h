#pragma once

#include <optional>

#include <QColor>

#include "platform/qt/table_work.h"

namespace snipdeck {

/// Which cells a change is for: those of a table that belong to the cell with the caret.
enum class TableScope { Cell, Row, Column, Table };
/// What becomes of a table's rows and columns.
enum class TableChange {
  None, RowsAbove, RowsBelow, ColumnsBefore, ColumnsAfter, RemoveRow, RemoveColumn, RemoveTable
};

/// What a table and the cell with the caret look like; lengths in pixels.
struct TableTraits {
  Qt::Alignment alignment = Qt::AlignLeft;
  double columnWidth = 0;
  double distance = 0;  ///< of the text from the cell's edge
  CellLines lines;
  QColor shading;  ///< invalid for none

  bool operator==(const TableTraits&) const = default;
};

TableTraits TraitsOf(const QTextTable& table, const QTextCursor& cursor);
/// Changes what differs between the two; lines, shading and distance in the cells of `scope`.
void ApplyTableTraits(QTextTable& table, const QTextCursor& cursor, const TableTraits& before, const TableTraits& after,
                      TableScope scope);
/// All columns share the width between the margins.
void ShareWidth(QTextTable& table);
/// New rows and columns look like those of the caret's cell. The table is gone after RemoveTable, and when its last row or
/// column was removed.
void ChangeTable(QTextTable& table, const QTextCursor& cursor, TableChange change, int count);

}  // namespace snipdeck

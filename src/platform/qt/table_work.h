#pragma once

#include <QColor>
#include <QTextCursor>

class QTextTable;
class QTextTableCellFormat;

namespace snipdeck {

/// The innermost table with the whole selection in one of its cells; null outside of tables and for several cells.
QTextTable* TableWithSelection(const QTextCursor& cursor);

/// The lines around a table's cells; widths in pixels, 0 for none.
struct CellLines {
  double width = 1;
  QColor colour = Qt::black;

  bool operator==(const CellLines&) const = default;
};
void SetLines(QTextTableCellFormat& format, const CellLines& lines);
CellLines LinesOf(const QTextTableCellFormat& format);

/// Inserts a table behind the selection; its columns share the width between the margins evenly. In an empty paragraph it
/// takes that paragraph's place. The caret goes into the first cell. One undo step.
QTextTable* InsertTable(QTextCursor& cursor, int rows, int columns, const CellLines& lines);

/// Where the user has made an empty paragraph before a table: shows it, as a part of the step that made it.
void ShowNewBlankLine(QTextCursor caret);

/// A frame for text of its own is a table of one cell: that is how other programs show it, too. What stands before it
/// stays.
QTextTable* InsertTextFrame(QTextCursor& cursor);
/// See RichTextControl::TextFrameAttribute.
int FrameAttribute(const QTextTable& frame, int index);
void SetFrameAttribute(QTextTable& frame, int index, int value);

}  // namespace snipdeck

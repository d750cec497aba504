#include "platform/qt/table_work.h"

#include <array>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include "platform/units.h"
#include "richtext/blank_lines.h"

namespace snipdeck {
namespace {

constexpr double kCellPadding = 5;  // pixels
constexpr int kFrameBorder = 2;     // the attribute's number
constexpr int kFirstDistance = 9;   // left, top, right, bottom
constexpr int kBorderAround = 3;
constexpr int kMostDistance = 5 * kTwipsPerInch;

constexpr std::array kPaddings = {QTextFormat::TableCellLeftPadding, QTextFormat::TableCellTopPadding,
                                  QTextFormat::TableCellRightPadding, QTextFormat::TableCellBottomPadding};

bool IsDistance(int index) {
  return index >= kFirstDistance && index < kFirstDistance + static_cast<int>(kPaddings.size());
}

QTextFormat::Property PaddingOf(int index) {
  return kPaddings[static_cast<std::size_t>(index - kFirstDistance)];
}

}  // namespace

QTextTable* TableWithSelection(const QTextCursor& cursor) {
  QTextTable* const table = cursor.currentTable();
  if (!table) return nullptr;
  const QTextTableCell cell = table->cellAt(cursor.position());
  const auto holds = [&cell](int position) {
    return position >= cell.firstPosition() && position <= cell.lastPosition();
  };
  return holds(cursor.selectionStart()) && holds(cursor.selectionEnd()) ? table : nullptr;
}

void SetLines(QTextTableCellFormat& format, const CellLines& lines) {
  format.setBorder(lines.width);
  format.setBorderStyle(lines.width > 0 ? QTextFrameFormat::BorderStyle_Solid : QTextFrameFormat::BorderStyle_None);
  format.setBorderBrush(lines.colour);
}

CellLines LinesOf(const QTextTableCellFormat& format) {
  const bool isDrawn = format.hasProperty(QTextFormat::TableCellTopBorderStyle) &&
                       format.topBorderStyle() != QTextFrameFormat::BorderStyle_None;
  if (!isDrawn) return {0, Qt::black};
  const QBrush brush = format.topBorderBrush();
  return {format.topBorder(), brush.style() == Qt::NoBrush ? QColor(Qt::black) : brush.color()};
}

void ShowNewBlankLine(QTextCursor caret) {
  const QTextDocument& document = *caret.document();
  // Undone steps would be lost by a further one.
  if (document.rootFrame()->childFrames().isEmpty() || document.isRedoAvailable()) return;
  for (const QTextBlock& block : {caret.block().previous(), caret.block(), caret.block().next()}) {
    if (!IsHiddenBlankLine(block)) continue;
    caret.joinPreviousEditBlock();
    ShowBlankLine(block);
    caret.endEditBlock();
  }
}

namespace {

QTextTable* MakeTable(QTextCursor& cursor, int rows, int columns, const CellLines& lines) {
  QTextTableFormat format;
  format.setBorder(0);
  format.setCellSpacing(0);
  format.setBorderCollapse(true);
  format.setCellPadding(kCellPadding);
  format.setColumnWidthConstraints(
      QList<QTextLength>(columns, QTextLength(QTextLength::PercentageLength, 100.0 / columns)));
  QTextTable* const table = cursor.insertTable(rows, columns, format);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      QTextTableCell cell = table->cellAt(row, column);
      QTextTableCellFormat cellFormat = cell.format().toTableCellFormat();
      SetLines(cellFormat, lines);
      cell.setFormat(cellFormat);
    }
  }
  cursor = table->cellAt(0, 0).firstCursorPosition();
  return table;
}

}  // namespace

QTextTable* InsertTable(QTextCursor& cursor, int rows, int columns, const CellLines& lines) {
  QTextCursor above = cursor;
  above.beginEditBlock();
  cursor.setPosition(cursor.selectionEnd());
  const bool takesPlace = IsBlankLine(cursor.block());
  QTextTable* const table = MakeTable(cursor, rows, columns, lines);
  above.setPosition(table->firstPosition() - 1);
  if (takesPlace) above.deletePreviousChar();
  above.endEditBlock();
  return table;
}

QTextTable* InsertTextFrame(QTextCursor& cursor) {
  QTextCursor step = cursor;
  step.beginEditBlock();
  cursor.setPosition(cursor.selectionEnd());
  QTextTable* const frame = MakeTable(cursor, 1, 1, {});
  step.endEditBlock();
  return frame;
}

int FrameAttribute(const QTextTable& frame, int index) {
  const QTextTableCellFormat format = frame.cellAt(0, 0).format().toTableCellFormat();
  if (index == kFrameBorder) return LinesOf(format).width > 0 ? kBorderAround : 0;
  if (!IsDistance(index)) return 0;
  const bool hasOwn = format.hasProperty(PaddingOf(index));
  const double pixels = hasOwn ? format.doubleProperty(PaddingOf(index)) : frame.format().cellPadding();
  return qRound(pixels * kTwipsPerPixel);
}

void SetFrameAttribute(QTextTable& frame, int index, int value) {
  QTextTableCell cell = frame.cellAt(0, 0);
  QTextTableCellFormat format = cell.format().toTableCellFormat();
  if (index == kFrameBorder) SetLines(format, {value > 0 ? 1.0 : 0.0, Qt::black});
  if (IsDistance(index)) format.setProperty(PaddingOf(index), std::clamp(value, 0, kMostDistance) / kTwipsPerPixel);
  // Qt lays a cell out again for a change of its paragraphs, not of itself.
  QTextCursor inside = cell.firstCursorPosition();
  inside.beginEditBlock();
  cell.setFormat(format);
  inside.setBlockFormat(inside.blockFormat());
  inside.endEditBlock();
}

}  // namespace snipdeck

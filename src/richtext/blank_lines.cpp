#include "richtext/blank_lines.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

namespace snipdeck {
namespace {

bool HasGround(const QTextBlock& block) {
  return block.blockFormat().hasProperty(QTextFormat::BackgroundBrush);
}

/// The cell, or the text around all tables, that a position stands in: where it begins.
int BeginOfSurroundings(QTextCursor cursor) {
  const QTextTable* const table = cursor.currentTable();
  return table ? table->cellAt(cursor).firstPosition() : 0;
}

QTextTable* TableThatBeginsAt(const QTextBlock& block) {
  QTextTable* const table = block.isValid() ? QTextCursor(block).currentTable() : nullptr;
  return table && table->firstPosition() == block.position() ? table : nullptr;
}

bool IsBelowTable(const QTextBlock& block) {
  const QTextTable* const above = block.previous().isValid() ? QTextCursor(block.previous()).currentTable() : nullptr;
  return above && above->lastPosition() == block.position() - 1;
}

}  // namespace

// A ground that has no colour is drawn as none, but Qt takes a paragraph with one for meant.
void ShowBlankLine(const QTextBlock& block) {
  if (block.length() > 1 || HasGround(block)) return;
  QTextBlockFormat shown;
  shown.setBackground(QBrush(Qt::NoBrush));
  QTextCursor(block).mergeBlockFormat(shown);
}

bool IsBlankLine(const QTextBlock& block) {
  if (!block.isValid() || block.length() > 1 || !block.previous().isValid()) return false;
  const QTextCursor here(block);
  if (BeginOfSurroundings(here) == block.position()) return false;
  return QTextCursor(block.previous()).currentFrame() == here.currentFrame();
}

bool IsHiddenBlankLine(const QTextBlock& block) {
  return IsBlankLine(block) && !HasGround(block) && TableThatBeginsAt(block.next());
}

bool IsBlankLineBelowTable(const QTextBlock& block) {
  if (block.length() > 1 || !IsBelowTable(block) || !block.next().isValid()) return false;
  if (TableThatBeginsAt(block.next())) return HasGround(block);
  return BeginOfSurroundings(QTextCursor(block)) == BeginOfSurroundings(QTextCursor(block.next()));
}

}  // namespace snipdeck

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
  if (!IsBlankLine(block) || HasGround(block) || !block.next().isValid()) return false;
  const QTextCursor below(block.next());
  return below.currentTable() && below.currentTable()->firstPosition() == block.next().position();
}

}  // namespace snipdeck

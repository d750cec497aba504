#include "platform/qt/paragraph_indents.h"

#include <QTextCursor>
#include <QTextDocument>

#include "richtext/format_values.h"

namespace snipdeck {

ParagraphIndents IndentsOf(const QTextBlock& block, double zoom) {
  const QTextBlockFormat format = block.blockFormat();
  ParagraphIndents indents;
  indents.listShare = ListSteps(block) * zoom * block.document()->indentWidth();
  indents.left = indents.listShare + format.leftMargin();
  indents.firstLine = indents.left + format.textIndent();
  indents.right = format.rightMargin();
  indents.tabs = format.tabPositions();
  return indents;
}

void ApplyIndents(QTextCursor cursor, const ParagraphIndents& before, const ParagraphIndents& after) {
  QTextBlockFormat change;
  if (after.left != before.left) change.setLeftMargin(after.left - after.listShare);
  if (after.firstLine - after.left != before.firstLine - before.left)
    change.setTextIndent(after.firstLine - after.left);
  if (after.right != before.right) change.setRightMargin(after.right);
  if (after.tabs != before.tabs) change.setTabPositions(after.tabs);
  if (change.propertyCount() > 0) cursor.mergeBlockFormat(change);
}

}  // namespace snipdeck

#include "platform/qt/dialogs/selection_formats.h"

#include <QSet>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

QList<QTextCharFormat> SelectedCharFormats(const RichTextControl& control) {
  const QTextCursor cursor = control.textCursor();
  const int begin = cursor.selectionStart();
  const int end = cursor.selectionEnd();
  QList<QTextCharFormat> formats;
  QSet<int> seen;
  for (QTextBlock block = control.document()->findBlock(begin); block.isValid() && block.position() < end;
       block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      if (fragment.position() >= end || fragment.position() + fragment.length() <= begin) continue;
      if (seen.contains(fragment.charFormatIndex())) continue;
      seen.insert(fragment.charFormatIndex());
      formats.append(fragment.charFormat());
    }
  }
  if (formats.isEmpty()) formats.append(control.currentCharFormat());
  return formats;
}

QList<QTextBlock> SelectedBlocks(const RichTextControl& control) {
  const QTextCursor cursor = control.textCursor();
  QList<QTextBlock> blocks;
  QTextBlock block = control.document()->findBlock(cursor.selectionStart());
  do {
    blocks.append(block);
    block = block.next();
  } while (block.isValid() && block.position() < cursor.selectionEnd());
  return blocks;
}

}  // namespace snipdeck

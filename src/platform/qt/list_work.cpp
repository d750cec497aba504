#include "platform/qt/list_work.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include "richtext/format_properties.h"
#include "richtext/list_labels.h"

namespace snipdeck {
namespace {

// Numbers and labels that a file gave belong to the list that the paragraph leaves.
void LeaveList(const QTextBlock& block) {
  QTextList* const list = block.textList();
  QTextCursor cursor(block);
  QTextBlockFormat format = block.blockFormat();
  if (list) {
    list->remove(block);
    format.setObjectIndex(-1);
    format.setIndent(0);
  }
  for (const int property : {int(kListLabel), int(QTextFormat::ListStyle)}) format.clearProperty(property);
  cursor.setBlockFormat(format);
}

// Qt would count from 1.
void LabelAnew(const QTextBlock& item) {
  QTextBlockFormat format = item.blockFormat();
  TakeLabelFromQt(format);
  QTextCursor(item).setBlockFormat(format);
}

}  // namespace

bool IsNumbered(QTextListFormat::Style style) {
  return style <= QTextListFormat::ListDecimal && style != QTextListFormat::ListStyleUndefined;
}

ListTraits ListAt(const QTextCursor& cursor) {
  const QTextList* const list = cursor.currentList();
  if (!list) return {};
  const QTextListFormat format = list->format();
  const bool isNumbered = IsNumbered(format.style());
  return {format.style(), isNumbered ? format.numberSuffix() : QStringLiteral("."), std::max(1, format.indent()),
          isNumbered && format.hasProperty(kListStart) ? format.intProperty(kListStart) : 1};
}

void SetList(QTextCursor cursor, const ListTraits& traits) {
  cursor.beginEditBlock();
  const QTextDocument& document = *cursor.document();
  const int end = cursor.selectionEnd();
  const int begin = cursor.selectionStart();
  for (QTextBlock block = document.findBlock(begin); block.isValid() && block.position() <= end; block = block.next())
    LeaveList(block);
  if (traits.style != QTextListFormat::ListStyleUndefined) {
    QTextListFormat format;
    format.setStyle(traits.style);
    format.setIndent(traits.level);
    if (IsNumbered(traits.style)) format.setNumberSuffix(traits.suffix);
    const bool startsElsewhere = IsNumbered(traits.style) && traits.start != 1;
    if (startsElsewhere) format.setProperty(kListStart, traits.start);
    QTextCursor selection(cursor);
    selection.setPosition(begin);
    selection.setPosition(end, QTextCursor::KeepAnchor);
    const QTextList* const list = selection.createList(format);
    for (int i = 0; startsElsewhere && i < list->count(); ++i) LabelAnew(list->item(i));
  }
  cursor.endEditBlock();
}

void CountNewItem(QTextCursor cursor) {
  const QTextBlock block = cursor.block();
  QTextBlockFormat format = block.blockFormat();
  const bool isNumber = block.textList() && IsNumbered(block.textList()->format().style());
  const bool isCopy = block.previous().blockFormat().stringProperty(kListLabel) == format.stringProperty(kListLabel);
  if (!isNumber || !isCopy || !format.hasProperty(kListLabel)) return;
  format.clearProperty(kListLabel);
  cursor.joinPreviousEditBlock();
  cursor.setBlockFormat(format);
  cursor.endEditBlock();
}

}  // namespace snipdeck

#include <QTextTable>

#include "platform/qt/dialogs/bullets_dialog.h"
#include "platform/qt/dialogs/insert_table_dialog.h"
#include "platform/qt/dialogs/table_attributes_dialog.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/table_work.h"

// The control's tables, lists and text frames.

namespace snipdeck {

int RichTextControl::TableAtCaret() const {
  const QTextTable* const table = TableWithSelection(textCursor());
  return table ? table->objectIndex() + 1 : 0;
}

void RichTextControl::InsertTableDialog() {
  if (!isReadOnly()) RunInsertTableDialog(*this);
}

void RichTextControl::TableAttributesDialog() {
  if (!isReadOnly() && TableAtCaret() > 0) RunTableAttributesDialog(*this);
}

void RichTextControl::BulletsDialog() {
  if (!isReadOnly()) RunBulletsDialog(*this);
}

int RichTextControl::TextFrameInsert(int, int, int) {
  QTextCursor cursor = textCursor();
  const QTextTable* const frame = InsertTextFrame(cursor);
  setTextCursor(cursor);
  return frame->objectIndex() + 1;
}

int RichTextControl::TextFrameAttribute(int frame, int, int, int index) const {
  const auto* const table = qobject_cast<QTextTable*>(document()->object(frame - 1));
  return table ? FrameAttribute(*table, index) : 0;
}

void RichTextControl::SetTextFrameAttribute(int frame, int, int, int index, int value) {
  if (auto* const table = qobject_cast<QTextTable*>(document()->object(frame - 1)))
    SetFrameAttribute(*table, index, value);
}

}  // namespace snipdeck

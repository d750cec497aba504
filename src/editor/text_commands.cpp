#include "editor/text_commands.h"

#include <QTextCursor>
#include <QTextTable>

#include "editor/caret_text.h"
#include "platform/message_box.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/format_properties.h"

namespace snipdeck {

namespace {

/// Attributes of a text box in the order in which they are set: its border and the distances of its text from it, in
/// twips.
struct FrameAttribute {
  int index;
  int value;
};
constexpr FrameAttribute kTextBox[] = {{2, 3}, {9, 180}, {11, 200}, {10, 180}, {12, 180}};

int Toggled(int attribute) {
  return attribute != 0 ? 0 : 1;
}

/// Whether both positions lie in the same cell, or both outside of tables.
bool StandTogether(const QTextDocument& document, int first, int second) {
  QTextCursor one(const_cast<QTextDocument*>(&document));
  QTextCursor other = one;
  one.setPosition(first);
  other.setPosition(second);
  if (one.currentFrame() != other.currentFrame()) return false;
  return !one.currentTable() || one.currentTable()->cellAt(one) == one.currentTable()->cellAt(other);
}

bool HoldsPicture(const QString& text) {
  return text.contains(QChar::ObjectReplacementCharacter);
}

}  // namespace

void ToggleBold(RichTextControl& control) {
  control.SetBold(Toggled(control.Bold()));
}

void ToggleItalic(RichTextControl& control) {
  control.SetItalic(Toggled(control.Italic()));
}

void ToggleUnderline(RichTextControl& control) {
  control.SetUnderline(Toggled(control.Underline()));
}

void PlainCharacters(RichTextControl& control) {
  control.SetItalic(0);
  control.SetUnderline(0);
  control.SetStrikeout(0);
  control.SetBold(0);
  QTextCharFormat onBaseline;
  onBaseline.setVerticalAlignment(QTextCharFormat::AlignNormal);
  onBaseline.setProperty(kBaselineShift, 0);
  control.mergeCurrentCharFormat(onBaseline);
}

// What is typed next would join the step to undo if that ended with the new characters, so the old ones go last.
bool SwapCharacters(RichTextControl& control) {
  const int caret = control.SelStart();
  const NeighbourLengths around = CharactersAround(control, caret);
  const int begin = caret - around.before;
  const int length = around.before + around.behind;
  if (around.before == 0 || around.behind == 0) return false;
  if (!StandTogether(*control.document(), begin, begin + length)) return false;
  control.SetSelStart(begin);
  control.SetSelLength(length);
  const QString both = control.SelText();
  if (HoldsPicture(both)) {
    control.SetSelStart(caret);
    return false;
  }
  control.SetSelStart(begin + length);
  QTextCursor old = control.textCursor();
  old.beginEditBlock();
  control.SetSelText(both.mid(around.before) + both.left(around.before));
  old.setPosition(begin);
  old.setPosition(begin + length, QTextCursor::KeepAnchor);
  old.removeSelectedText();
  old.endEditBlock();
  return true;
}

void FormatTable(RichTextControl& control, MessageBox& messages) {
  const bool severalCells = control.textCursor().hasComplexSelection();
  if (!severalCells && control.TableAtCaret() > 0) return control.TableAttributesDialog();
  messages.Show({.text = QStringLiteral("Cursor not within a table or more than one cell is selected."),
                 .icon = MessageIcon::Exclamation});
}

// One step to undo.
void InsertTextBox(RichTextControl& control) {
  QTextCursor step = control.textCursor();
  step.beginEditBlock();
  const int box = control.TextFrameInsert(1, 1, -1);
  for (const auto& [index, value] : kTextBox) control.SetTextFrameAttribute(box, 1, 1, index, value);
  control.SetSelStart(control.SelStart() - 1);
  control.SetSelText(QStringLiteral("\r\n"));
  control.SetSelStart(control.SelStart() - 1);
  step.endEditBlock();
}

}  // namespace snipdeck

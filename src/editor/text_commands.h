#pragma once

namespace snipdeck {

class MessageBox;
class RichTextControl;

/// What the editor's commands do to the text of a control. Each is one step of the control's undo history.

void ToggleBold(RichTextControl& control);
void ToggleItalic(RichTextControl& control);
void ToggleUnderline(RichTextControl& control);
/// No longer italic, underlined, struck out, bold, raised or lowered.
void PlainCharacters(RichTextControl& control);

/// Exchanges the characters before and behind the caret, or the selection's start, and leaves the caret behind both. A
/// character is what the user sees as one, however many code units it has. False where there are no two characters to
/// exchange; nothing has changed then.
bool SwapCharacters(RichTextControl& control);

/// The dialog of the table at the caret. Outside of tables, and with several cells selected, a message says so.
void FormatTable(RichTextControl& control, MessageBox& messages);

/// Inserts a bordered text box at the caret, on a line of its own.
void InsertTextBox(RichTextControl& control);

}  // namespace snipdeck

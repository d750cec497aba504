#pragma once

namespace snipdeck {

class RichTextControl;

/// The character before the caret, or before the selection; 0 at the start of the text, "\n" behind a paragraph's end.
/// However long the text is, this takes no time.
char16_t CharacterBeforeCaret(const RichTextControl& control);

/// How many code units the character before the position and the one behind it have; 0 where there is none. A surrogate
/// pair and a letter with combining marks are one character.
struct NeighbourLengths {
  int before = 0;
  int behind = 0;
};
NeighbourLengths CharactersAround(const RichTextControl& control, int position);

}  // namespace snipdeck

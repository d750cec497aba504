#pragma once

#include <QString>

namespace snipdeck {

/// The mark for a typed apostrophe (39) or straight double quote (34) behind the character `before`, which is 0 at the
/// start of the text: an opening mark at the start, behind blanks, opening brackets and an opening or straight mark of
/// the other kind, a closing one elsewhere. 0 for any other character.
char16_t TypographicMark(char16_t typed, char16_t before);

/// Text that comes in one piece, as input methods deliver it, with its straight marks replaced one after the other.
QString WithTypographicMarks(QString text, char16_t before);

}  // namespace snipdeck

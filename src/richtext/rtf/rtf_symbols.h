#pragma once

#include "richtext/rtf/rtf_fonts.h"

namespace snipdeck {

/// The character that a byte of a symbol font shows. What has no character of its own goes to the private use area
/// (U+F000 and up), where such fonts have their glyphs.
char16_t SymbolToUnicode(RtfSymbolFont font, int byte);

}  // namespace snipdeck

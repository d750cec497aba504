#pragma once

#include <optional>

#include <QPalette>

#include "platform/units.h"

namespace snipdeck {

/// A colour as plain red, green and blue. A number that stands for a colour of the system, 0x80000000 and the index,
/// becomes that colour of the palette. Nothing where the number is no colour.
std::optional<OleColour> TranslateColour(OleColour colour, const QPalette& palette);

}  // namespace snipdeck

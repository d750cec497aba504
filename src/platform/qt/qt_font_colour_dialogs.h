#pragma once

#include "platform/font_colour_dialogs.h"

namespace snipdeck {

/// Font and colour dialogs of the desktop, in front of the program's active window.
class QtFontColourDialogs : public FontColourDialogs {
 public:
  std::optional<FontChoice> ChooseFont(const FontChoice& preset) override;
  OleColour PickColour(OleColour start, bool openFull) override;
};

}  // namespace snipdeck

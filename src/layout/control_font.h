#pragma once

#include <QWidget>

#include "platform/font_colour_dialogs.h"

namespace snipdeck {

/// Gives every button, label, check box, text field, combo box, frame and list of a window a font. An empty name and a
/// size that is not above 0 leave what the control has. Texts with what belongs to them, grids, menus and windows of
/// their own keep their fonts.
void SetControlFont(QWidget& window, const FontChoice& font);

}  // namespace snipdeck

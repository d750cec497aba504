#pragma once

#include "platform/menu_scheme.h"

namespace snipdeck {

/// Menus of the main window and the editor.
inline constexpr MenuScheme kGreyMenus = {
    .arrow = qRgb(0, 0, 0),
    .background = qRgb(249, 249, 248),
    .border = qRgb(103, 103, 103),
    .checkFill = qRgb(213, 214, 218),
    .checkMark = qRgb(0, 0, 0),
    .disabledIconTint = qRgb(141, 141, 141),
    .iconShadow = qRgb(136, 142, 158),
    .menuBarBackground = qRgb(212, 208, 200),
    .menuBarText = qRgb(0, 0, 0),
    .selectedArrow = qRgb(0, 0, 0),
    .selectedCheckBorder = qRgb(10, 36, 106),
    .selectedCheckFill = qRgb(133, 146, 181),
    .selectedMenuBorder = qRgb(10, 36, 106),
    .selectedMenuFill = qRgb(182, 190, 211),
    .selectedMenuText = qRgb(0, 0, 0),
    .separator = qRgb(167, 167, 167),
    .sideStripGradient1 = qRgb(247, 246, 244),
    .sideStripGradient2 = qRgb(212, 208, 200),
    .topLevelGradient1 = qRgb(249, 249, 248),
    .topLevelGradient2 = qRgb(236, 234, 231),
    .sideStrip = qRgb(0, 0, 0),
};

/// Menus of the windows that show the clipboard, and of the message box with file details.
inline constexpr MenuScheme kBlueMenus = {
    .arrow = qRgb(50, 62, 88),
    .background = qRgb(246, 246, 246),
    .border = qRgb(101, 147, 207),
    .checkFill = qRgb(141, 151, 180),
    .checkMark = qRgb(0, 0, 0),
    .disabledIconTint = qRgb(160, 161, 163),
    .iconShadow = qRgb(27, 135, 235),
    .menuBarBackground = qRgb(191, 219, 255),
    .menuBarText = qRgb(0, 0, 0),
    .selectedArrow = qRgb(50, 62, 88),
    .selectedCheckBorder = qRgb(12, 44, 186),
    .selectedCheckFill = qRgb(92, 113, 218),
    .selectedMenuBorder = qRgb(27, 135, 235),
    .selectedMenuFill = qRgb(105, 213, 253),
    .selectedMenuText = qRgb(0, 0, 0),
    .separator = qRgb(154, 198, 255),
    .sideStripGradient1 = qRgb(227, 239, 255),
    .sideStripGradient2 = qRgb(177, 211, 255),
    .topLevelGradient1 = qRgb(227, 239, 254),
    .topLevelGradient2 = qRgb(144, 185, 238),
    .sideStrip = qRgb(0, 0, 0),
};

}  // namespace snipdeck

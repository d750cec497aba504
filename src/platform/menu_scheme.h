#pragma once

#include <QRgb>

namespace snipdeck {

/// The colours of a menu bar and its menus. "Side strip" is the strip along the left edge of a drop-down menu, where
/// check marks and pictures stand.
struct MenuScheme {
  QRgb arrow;
  QRgb background;
  QRgb border;
  QRgb checkFill;
  QRgb checkMark;
  QRgb disabledIconTint;
  QRgb iconShadow;
  QRgb menuBarBackground;
  QRgb menuBarText;
  QRgb selectedArrow;
  QRgb selectedCheckBorder;
  QRgb selectedCheckFill;
  QRgb selectedMenuBorder;
  QRgb selectedMenuFill;
  QRgb selectedMenuText;
  QRgb separator;
  QRgb sideStripGradient1;
  QRgb sideStripGradient2;
  QRgb topLevelGradient1;
  QRgb topLevelGradient2;
  QRgb sideStrip;
};

}  // namespace snipdeck

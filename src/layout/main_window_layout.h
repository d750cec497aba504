#pragma once

#include <array>

namespace snipdeck {

/// A place inside its parent, in twips; not rounded.
struct TwipRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// Where the five children of a panel stand, relative to the panel.
struct PanelPlacement {
  TwipRect panel;
  TwipRect buttonBar;
  TwipRect ruler;
  TwipRect marginStrip;
  TwipRect textControl;
  TwipRect statusBar;
};

struct MainWindowPlacement {
  /// Entry n - 1 is box n.
  std::array<TwipRect, 12> boxes;
  PanelPlacement frame1;
  PanelPlacement frame2;
};

/// The arithmetic of the main window's layout pass, in twips. Pure: it is given sizes and returns rectangles.
class MainWindowLayout {
 public:
  static constexpr double kMinOuterWidth = 8000;
  static constexpr double kMinOuterHeight = 10000;
  /// Left edge of the box grid without a sidebar.
  static constexpr double kGridLeft = 120;
  /// Top of box 1 before the first pass and from then on.
  static constexpr double kBoxOneFirstTop = 600;
  static constexpr double kBoxOneTop = 560;

  /// Left edge of the box grid beside a sidebar of that width, a whole number.
  static double GridLeft(bool sidebarShown, double sidebarWidth);
  /// Height of the sidebar's grid, which ends where the box grid ends; negative in a client area that is too low.
  static double SidebarGridHeight(double clientHeight);

  /// Places everything in a client area of that size. `boxOneTop` is where box 1 stands at this moment: the panels
  /// follow it. A client area that is too small gives negative sizes, which the caller does not apply.
  static MainWindowPlacement Place(double clientWidth, double clientHeight, double gridLeft, double boxOneTop);
};

}  // namespace snipdeck

#pragma once

#include "layout/main_window_layout.h"

namespace snipdeck {

/// The editor window's measures, in twips. The bars overlap a little, as do ruler and text.
namespace editor_measures {

inline constexpr double kToolStripHeight = 480;
inline constexpr double kButtonBarTop = 460;
inline constexpr double kButtonBarHeight = 375;
inline constexpr double kRulerTop = 840;
inline constexpr double kRulerHeight = 405;
inline constexpr double kTextTop = 1200;
inline constexpr double kStatusBarHeight = 315;
inline constexpr double kTextLeftInPageView = 40;
inline constexpr double kTextLeftInNormalView = 320;
/// So that the last button of the tool strip can be reached, and a few lines of the text.
inline constexpr double kLeastWidth = 8900;
inline constexpr double kLeastHeight = 3600;

}  // namespace editor_measures

/// Where the text stands in a window of that inner size; `viewMode` is the control's. In page view its right edge may
/// lie beyond the window's.
TwipRect PlaceOfText(double clientWidth, double clientHeight, int viewMode);

/// 95 per cent of another window, centred over it.
TwipRect CentredOver(const TwipRect& window);

}  // namespace snipdeck

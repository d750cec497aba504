#pragma once

#include <array>

#include "platform/screen.h"
#include "platform/window_geometry.h"

namespace snipdeck {

/// Places and sizes that the user gives the main window by name or by percentage of the work area. Each value is set in
/// its turn, and what the window made of it is read back where a later one depends on it.
class WindowSizes {
 public:
  /// As the lists show them, in the order of their indexes.
  static constexpr std::array kPresets = {
      " Same size as screen",    " Vertical half, left", " Horizontal half, top",   " Vertical half, right",
      " Horizontal half, below", " Centre on screen",    " Centre with max height",
  };
  static constexpr std::array kPercents = {
      "  30%", "  40%", "  50%", "  60%", "  70%", "  80%", "  90%", "  95%",
  };

  explicit WindowSizes(const WorkArea& area) : m_area(area) {}

  /// An index outside the list changes nothing.
  void ApplyPreset(int index, WindowGeometry& window) const;
  void ApplyPercent(int index, WindowGeometry& window) const;

 private:
  void Fill(WindowGeometry& window, double top, double left, double height, double width) const;
  double CentredTop(const WindowGeometry& window) const;
  double CentredLeft(const WindowGeometry& window) const;

  WorkArea m_area;
};

}  // namespace snipdeck

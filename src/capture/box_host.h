#pragma once

#include <cstdint>
#include <functional>

namespace snipdeck {

/// What the keys in the boxes ask of the main window. What nobody has set does nothing.
struct BoxHost {
  std::function<void()> switchFocus = [] {};
  std::function<void()> showClipboard = [] {};
  /// The next width of the sidebar.
  std::function<void()> nextSidebarWidth = [] {};
  /// Place the main window at the left or the right; with 1 it fills the room there.
  std::function<void(std::int16_t)> placeLeft = [](std::int16_t) {};
  std::function<void(std::int16_t)> placeRight = [](std::int16_t) {};
};

}  // namespace snipdeck

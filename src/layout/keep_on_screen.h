#pragma once

#include <cstdint>

#include "platform/screen.h"
#include "platform/window_geometry.h"

namespace snipdeck {

/// A placement as it was saved, in twips; a value that is 0 was never saved.
struct SavedPlacement {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

/// Whether the window is the main window itself, which keeps a smaller distance from the edges of the work area.
enum class PlacedWindow { Main, Other };

/// Corrects a window that has just been given a saved placement, so that it lies inside the work area. `saved` then
/// holds the placement that the window was given in place of one that was too large.
void KeepOnScreen(const WorkArea& area, WindowGeometry& window, PlacedWindow which, SavedPlacement& saved);

/// Moves a window whose title bar nobody could reach: above the work area, or with less than 100 pixels of it inside. What
/// KeepOnScreen gives is left alone otherwise.
void KeepReachable(const WorkArea& area, WindowGeometry& window);

}  // namespace snipdeck

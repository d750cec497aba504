#pragma once

#include "platform/message_box.h"
#include "platform/screen.h"
#include "platform/window_geometry.h"

namespace snipdeck {

/// Puts a window beside another one, as high as that one and at its height. Where 5000 twips or less are free on that
/// side, a message says so and nothing changes. With `fill` 1 the window also takes the whole width that is free there.
/// `reference` and `moved` may be the same window: every value is read when its turn comes. Whatever comes out, the
/// title bar stays within reach.
void PlaceLeftOf(const WorkArea& area, MessageBox& messages, const WindowGeometry& reference, WindowGeometry& moved,
                 int fill);
void PlaceRightOf(const WorkArea& area, MessageBox& messages, const WindowGeometry& reference, WindowGeometry& moved,
                  int fill);

}  // namespace snipdeck

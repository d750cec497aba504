#pragma once

#include <cstdint>

#include <QByteArray>

namespace snipdeck {

/// Brings a window of any program to the front and gives it the keyboard: restored where it is minimised, from another
/// workspace by going there. `display` is as in $DISPLAY. The window manager is asked, so a window whose program hangs
/// comes forward too; without a window manager the window is mapped, raised and focused directly. False without such a
/// display; waits for the X server only.
bool RaiseWindow(const QByteArray& display, std::uint32_t window);

}  // namespace snipdeck

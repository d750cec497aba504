#pragma once

#include <cstdint>

namespace snipdeck {

/// The window system's number of a window; 0 is no window.
using WindowHandle = std::uintptr_t;

}  // namespace snipdeck

#pragma once

#include <QString>

#include <xcb/xcb.h>

#include "platform/result.h"
#include "platform/x11/own_contents.h"

namespace snipdeck {

/// Starts the program that keeps the clipboard's contents and passes them to it; it takes the clipboard if `owner`
/// still has it. Returns when it has done so or, with a failure, after so many milliseconds. It lives on when we end.
Outcome HoldInProcess(const QString& program, const OfferedData& data, xcb_window_t owner, int milliseconds);

}  // namespace snipdeck

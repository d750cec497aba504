#pragma once

#include <QEventLoop>
#include <QTimer>

namespace snipdeck {

/// Handles events for so many milliseconds, but none of the user's.
inline void HandleEventsFor(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace snipdeck

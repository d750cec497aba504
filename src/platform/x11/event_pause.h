#pragma once

#include <thread>

#include <QEventLoop>
#include <QTimer>

namespace snipdeck {

/// Handles events for so many milliseconds, but none of the user's.
inline void HandleEventsFor(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

/// The result of a long computation, which runs in a thread of its own while events are handled, but none of the
/// user's. It touches nothing that the events touch.
template <typename Computation>
auto ComputeAside(Computation computation) {
  decltype(computation()) result;
  QEventLoop loop;
  std::thread worker([&] {
    result = computation();
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  worker.join();
  return result;
}

}  // namespace snipdeck

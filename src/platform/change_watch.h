#pragma once

#include <functional>

namespace snipdeck {

/// Tells of every change of the system clipboard. It never polls.
class ChangeWatch {
 public:
  using Handler = std::function<void()>;
  virtual ~ChangeWatch() = default;

  /// From this call on, `onChange` runs once for each change, in the order of the changes, on the thread that called, after
  /// the new contents can be read from Clipboard without waiting. Changes that this program makes are told like any other.
  virtual void StartWatching(Handler onChange) = 0;
  /// No change is told afterwards.
  virtual void StopWatching() = 0;
  /// While held, changes are read but not told; afterwards they are told one after the other, by the event loop.
  virtual void Hold(bool hold) = 0;
};

}  // namespace snipdeck

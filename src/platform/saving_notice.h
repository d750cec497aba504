#pragma once

namespace snipdeck {

/// The small window that tells that a file is being written. It asks nothing and never takes the keyboard.
class SavingNotice {
 public:
  virtual ~SavingNotice() = default;

  /// Returns at once; the window is painted when events are handled.
  virtual void Show() = 0;
  virtual void Close() = 0;
};

}  // namespace snipdeck

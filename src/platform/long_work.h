#pragma once

#include <functional>

#include <QString>

namespace snipdeck {

/// Work that may take long, such as reading a large file, done while the program's windows stay alive.
class LongWork {
 public:
  /// Told now and then by the work: how far it is, from 0 to 1. False asks it to end early.
  using Step = std::function<bool(double part)>;
  using Work = std::function<void(const Step& step)>;

  virtual ~LongWork() = default;

  /// Runs `work`, on a thread of its own where it can, and returns when it has ended. Meanwhile windows paint and
  /// copies of other programs arrive, but the user can do nothing but wait, or cancel. `what` is shown after half a
  /// second. False when the user has cancelled, whether or not the work ended early.
  virtual bool Run(const QString& what, const Work& work) = 0;
};

}  // namespace snipdeck

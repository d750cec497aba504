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
  /// A few milliseconds of work on the windows' own thread; false when nothing is left to do.
  using Turn = std::function<bool()>;
  /// What only the windows' own thread can do before the work and after it. An empty one does nothing.
  struct Turns {
    Turn before;
    Turn after;
  };

  virtual ~LongWork() = default;

  /// Runs `turns.before` again and again, then `work`, on a thread of its own where it can, then `turns.after`, and returns
  /// when all has ended. Meanwhile windows paint, but the user can do nothing but wait, or cancel. `what` is shown after
  /// half a second. False when the user has cancelled, whether or not the work ended early; what comes after it is left out
  /// then, and once it has begun, nothing can be cancelled any more.
  virtual bool Run(const QString& what, const Work& work, const Turns& turns) = 0;
};

}  // namespace snipdeck

#pragma once

#include "platform/long_work.h"

namespace snipdeck {

/// Does the work before it returns; nobody cancels.
class WorkAtOnce : public LongWork {
 public:
  bool Run(const QString&, const Work& work, const Turns& turns) override {
    while (turns.before && turns.before()) {
    }
    if (meanwhile) meanwhile();
    work([](double) { return true; });
    while (turns.after && turns.after()) {
    }
    return true;
  }
  std::function<void()> meanwhile;
};

}  // namespace snipdeck

#pragma once

#include "platform/change_watch.h"
#include "platform/long_work.h"

namespace snipdeck {

/// Long work on the texts. What is copied meanwhile waits: it is filed behind what was loaded, in the order of the copies.
class UndisturbedWork : public LongWork {
 public:
  /// Both outlive this.
  UndisturbedWork(ChangeWatch& watch, LongWork& work) : m_watch(watch), m_work(work) {}

  bool Run(const QString& what, const Work& work, const Turns& turns) override {
    m_watch.Hold(true);
    const bool isWanted = m_work.Run(what, work, turns);
    m_watch.Hold(false);
    return isWanted;
  }

 private:
  ChangeWatch& m_watch;
  LongWork& m_work;
};

}  // namespace snipdeck

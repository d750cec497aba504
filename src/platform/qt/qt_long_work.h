#pragma once

#include "platform/long_work.h"

namespace snipdeck {

/// Long work on a thread, with a dialog that shows how far it is in front of the active window.
class QtLongWork : public LongWork {
 public:
  bool Run(const QString& what, const Work& work, const Turns& turns = {}) override;
};

}  // namespace snipdeck

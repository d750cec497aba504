#pragma once

#include <ctime>

namespace snipdeck {

/// Processor time of this thread alone, in milliseconds: other programs on the machine do not count.
inline double CpuMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

}  // namespace snipdeck

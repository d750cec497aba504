// Plays another program that copies, well-behaved or hostile: the partner of the end-to-end tests and the benchmarks.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <time.h>
#include <unistd.h>
#include <vector>

#include "selection_owner.h"

using namespace snipdeck::e2e;

namespace {

void PrintTaken(int number) {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  std::printf("took %d %lld\n", number, static_cast<long long>(now.tv_sec) * 1'000'000'000LL + now.tv_nsec);
  std::fflush(stdout);
}

void WaitForEvent(const X11Connection& connection, Clock::time_point until) {
  pollfd waiting{xcb_get_file_descriptor(connection.Get()), POLLIN, 0};
  int timeout = -1;
  if (until != Clock::time_point::max()) {
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    timeout = static_cast<int>(std::clamp<long long>(rest, 0, 60'000));
  }
  poll(&waiting, 1, timeout);
}

/// Makes copies `first` to `last`, the first of them at `start`, and serves them; returns when the display is gone or,
/// with --until-lost, when somebody else has taken the clipboard.
void Serve(const Options& options, int first, int last, Clock::time_point start) {
  X11Connection connection;
  SelectionOwner owner(connection, options);
  int next = first;
  Clock::time_point due = start;
  while (!xcb_connection_has_error(connection.Get())) {
    owner.Work();
    if (next <= last && !owner.IsTaking() && (owner.WantsChange() || due <= Clock::now())) {
      owner.BeginTake(NumberedOffers(options, next), [next] { PrintTaken(next); });
      ++next;
      // From this copy, not from the plan: after a delay no two copies follow each other at once.
      due = Clock::now() + options.interval;
    }
    if (options.untilLost && next > last && owner.IsLost()) return;
    const bool waitsToTake = next <= last && !owner.IsTaking();
    WaitForEvent(connection, waitsToTake ? std::min(due, owner.Due()) : owner.Due());
  }
}

/// Every copy by a child of its own, which lives until the next one takes the clipboard.
void ServeFromChildren(Options options) {
  options.untilLost = true;
  for (int number = 1; number <= options.count; ++number) {
    if (number > 1) std::this_thread::sleep_for(options.interval);
    if (fork() == 0) {
      Serve(options, number, number, Clock::now());
      _exit(0);
    }
    while (waitpid(-1, nullptr, WNOHANG) > 0) continue;
  }
  while (wait(nullptr) > 0) continue;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
    if (options.newProcess) {
      ServeFromChildren(options);
    } else {
      Serve(options, 1, options.count, Clock::now());
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "clipboard_owner: %s\n%s", failure.what(), kUsage);
    return 2;
  }
  return 0;
}

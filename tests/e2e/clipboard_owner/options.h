#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace snipdeck::e2e {

/// How the owner treats those who ask for its data.
enum class Mode {
  Normal,
  Slow,          ///< every answer and every piece of a long one comes late by `delay`
  Hang,          ///< answers nothing at all
  Die,           ///< ends without a word after the first piece of a transfer
  AnnounceHuge,  ///< announces 2 GB and sends nothing
  Trickle,       ///< announces 2 GB and sends one byte each `delay`
  Refuse,        ///< lists its targets but refuses each of them
  Lie,           ///< lists its targets and answers with another type and shape
  Change,        ///< makes its next copy when it is asked for data, and answers with that one
};

/// One target with its data.
struct Offer {
  std::string target;
  std::string data;
  /// "%d" in the data stands for the number of the copy.
  bool isNumbered = false;
};

struct Options {
  std::vector<Offer> offers;
  Mode mode = Mode::Normal;
  int count = 1;
  std::chrono::milliseconds interval{0};
  std::chrono::milliseconds delay{300};
  /// Numbered data is padded to this many bytes.
  std::size_t size = 0;
  bool untilLost = false;
  /// Each copy is made by a process of its own.
  bool newProcess = false;
  /// Made-up targets that are offered too, under names that no program would choose.
  int strangeTargets = 0;
  /// Tells which targets have been handed out.
  bool reports = false;
};

/// Throws std::invalid_argument, with a text for the user, if the arguments make no sense or a file cannot be read.
Options ParseOptions(const std::vector<std::string>& arguments);

/// The offers as they stand for copy number `number`: the number filled in and the data padded.
std::vector<Offer> NumberedOffers(const Options& options, int number);

extern const char* const kUsage;

}  // namespace snipdeck::e2e

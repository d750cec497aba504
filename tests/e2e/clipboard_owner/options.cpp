#include "options.h"

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace snipdeck::e2e {

const char* const kUsage =
    "clipboard_owner TARGET:TEXT|TARGET=FILE... [options]: owns the clipboard as another program would\n"
    "  --mode normal|slow|hang|die|announce-huge|trickle|refuse|lie|change\n"
    "  --delay MS      pause of slow and trickle (300)\n"
    "  --count N       takes the clipboard N times, --interval MS apart; %d in a TEXT is the number of the copy\n"
    "  --size BYTES    pads each TEXT\n"
    "  --strange N     offers N made-up targets with strange names too\n"
    "  --new-process   every copy by a process of its own\n"
    "  --until-lost    ends when somebody else takes the clipboard\n"
    "  --report        prints 'gave TARGET' when that has been handed out\n"
    "Prints 'took NUMBER NANOSECONDS' (CLOCK_MONOTONIC) right before each copy and 'owns' (or 'lost') after it.\n";

namespace {

constexpr std::array<std::pair<const char*, Mode>, 9> kModes{{{"normal", Mode::Normal},
                                                              {"slow", Mode::Slow},
                                                              {"hang", Mode::Hang},
                                                              {"die", Mode::Die},
                                                              {"announce-huge", Mode::AnnounceHuge},
                                                              {"trickle", Mode::Trickle},
                                                              {"refuse", Mode::Refuse},
                                                              {"lie", Mode::Lie},
                                                              {"change", Mode::Change}}};

Mode ModeByName(const std::string& name) {
  for (const auto& [known, mode] : kModes) {
    if (name == known) return mode;
  }
  throw std::invalid_argument("unknown mode: " + name);
}

std::string FileContents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::invalid_argument("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The first ':' or '=', but not the '=' of a target's charset parameter.
std::size_t SeparatorPosition(const std::string& argument) {
  static const std::string kCharset = ";charset=";
  std::size_t start = argument.find(kCharset);
  start = start == std::string::npos ? 0 : start + kCharset.size();
  const std::size_t early = argument.find_first_of(":");
  return early < start ? early : argument.find_first_of(":=", start);
}

Offer OfferFromArgument(const std::string& argument) {
  const std::size_t at = SeparatorPosition(argument);
  if (at == std::string::npos || at == 0)
    throw std::invalid_argument("neither TARGET:TEXT nor TARGET=FILE: " + argument);
  const std::string value = argument.substr(at + 1);
  const bool isText = argument[at] == ':';
  return {argument.substr(0, at), isText ? value : FileContents(value), isText};
}

Offer StrangeOffer(int number) {
  static const std::array<std::string, 6> kNames{
      "line\nbreak ", "%s%n%d ", "\x01\x02\x7F ", "\xF0\x9F\x93\x8B ", "\xFF\xFE no UTF-8 ", std::string(1500, 'n')};
  const auto kind = static_cast<std::size_t>(number) % kNames.size();
  return {kNames[kind] + std::to_string(number), "strange"};
}

/// Reads one option; `next` hands out its value.
template <typename Next>
void ReadOption(Options& options, const std::string& name, Next next) {
  if (name == "--mode") {
    options.mode = ModeByName(next());
  } else if (name == "--delay") {
    options.delay = std::chrono::milliseconds(std::stoi(next()));
  } else if (name == "--interval") {
    options.interval = std::chrono::milliseconds(std::stoi(next()));
  } else if (name == "--count") {
    options.count = std::stoi(next());
  } else if (name == "--size") {
    options.size = std::stoul(next());
  } else if (name == "--strange") {
    options.strangeTargets = std::stoi(next());
  } else if (name == "--new-process") {
    options.newProcess = true;
  } else if (name == "--report") {
    options.reports = true;
  } else if (name == "--until-lost") {
    options.untilLost = true;
  } else {
    throw std::invalid_argument("unknown option: " + name);
  }
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].starts_with("--")) {
      ReadOption(options, arguments[i], [&] {
        if (++i == arguments.size()) throw std::invalid_argument("a value is missing after " + arguments[i - 1]);
        return arguments[i];
      });
    } else {
      options.offers.push_back(OfferFromArgument(arguments[i]));
    }
  }
  for (int i = 0; i < options.strangeTargets; ++i) options.offers.push_back(StrangeOffer(i));
  if (options.offers.empty()) throw std::invalid_argument("nothing to offer");
  return options;
}

std::vector<Offer> NumberedOffers(const Options& options, int number) {
  std::vector<Offer> offers = options.offers;
  for (Offer& offer : offers) {
    if (!offer.isNumbered) continue;
    if (const std::size_t at = offer.data.find("%d"); at != std::string::npos) {
      offer.data.replace(at, 2, std::to_string(number));
    }
    if (offer.data.size() < options.size) offer.data.resize(options.size, 'x');
  }
  return offers;
}

}  // namespace snipdeck::e2e

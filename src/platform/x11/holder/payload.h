#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// What the program passes to the one that keeps the clipboard after its end. No Qt: the keeper is small.
namespace snipdeck::holder {

/// What the keeper answers when it has the clipboard.
inline constexpr char kTaken = 'k';

struct Payload {
  /// The window from which it takes the clipboard over; if another one owns it by then, it does not.
  std::uint32_t expectedOwner = 0;
  /// Target names with their bytes.
  std::vector<std::pair<std::string, std::string>> offers;
};

/// Reads exactly so many bytes; none if they do not come.
using ReadBytes = std::function<std::optional<std::string>(std::uint64_t)>;

std::string Write(const Payload& payload);
/// None if the bytes end early or announce more than 512 MB.
std::optional<Payload> Read(const ReadBytes& read);

}  // namespace snipdeck::holder

#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include <QStringView>

namespace snipdeck {

/// The number with which a text begins, rounded to the nearest whole number, halves to the even one. Blanks, tabs and
/// line feeds are skipped wherever they stand; then come a sign, digits and a decimal fraction, each of which may be
/// missing. A text that begins with no number gives 0; a number that needs more than 64 bits gives nothing.
std::optional<std::int64_t> LeadingWholeNumber(QStringView text);

/// As above; a number beyond the range of `Number` gives nothing.
template <typename Number>
std::optional<Number> LeadingNumber(QStringView text) {
  const auto whole = LeadingWholeNumber(text);
  if (!whole || *whole < std::numeric_limits<Number>::min() || *whole > std::numeric_limits<Number>::max()) return {};
  return static_cast<Number>(*whole);
}

}  // namespace snipdeck

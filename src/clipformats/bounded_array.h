#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "clipformats/clipboard_error.h"

namespace snipdeck {

/// An array with a lower and an upper bound. One that was never given bounds is empty, and asking it for a bound or an
/// entry throws IndexOutOfRange, as does an index outside the bounds.
template <typename T>
class BoundedArray {
 public:
  BoundedArray() = default;
  /// Indices `lower` .. `lower` + number of entries - 1.
  BoundedArray(std::int32_t lower, std::vector<T> entries) : m_lower(lower), m_entries(std::move(entries)) {}

  bool IsEmpty() const { return m_entries.empty(); }
  std::int32_t LowerBound() const {
    if (IsEmpty()) throw IndexOutOfRange();
    return m_lower;
  }
  std::int32_t UpperBound() const { return LowerBound() + static_cast<std::int32_t>(m_entries.size()) - 1; }
  const T& At(std::int32_t index) const {
    if (IsEmpty() || index < m_lower || index > UpperBound()) throw IndexOutOfRange();
    return m_entries[static_cast<std::size_t>(index - m_lower)];
  }
  /// The entries from the lower bound on.
  const std::vector<T>& Entries() const { return m_entries; }

 private:
  std::int32_t m_lower = 0;
  std::vector<T> m_entries;
};

}  // namespace snipdeck

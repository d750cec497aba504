#include "platform/qt/page_view/page_breaks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace snipdeck {
namespace {

constexpr std::size_t kLeast = 2;  // lines of a paragraph that stay together on a page
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Line by line; `breakBefore` begins a page in any case.
std::vector<double> Stack(const PageStrip& strip, const std::vector<LineRoom>& lines, double y, std::size_t breakBefore) {
  std::vector<double> tops;
  tops.reserve(lines.size());
  for (const LineRoom& line : lines) {
    const bool fits = y + line.needed <= strip.BottomOf(strip.PageOf(y));
    if (tops.size() == breakBefore || (!fits && line.needed <= strip.Room())) y = strip.NextTop(y);
    tops.push_back(y);
    y += line.advance;
  }
  return tops;
}

/// The lines that begin a page, other than the first.
std::vector<std::size_t> BreaksIn(const PageStrip& strip, const std::vector<double>& tops) {
  std::vector<std::size_t> breaks;
  for (std::size_t i = 1; i < tops.size(); ++i) {
    if (strip.PageOf(tops[i]) != strip.PageOf(tops[i - 1])) breaks.push_back(i);
  }
  return breaks;
}

bool FitsOnPage(const PageStrip& strip, const std::vector<LineRoom>& lines) {
  double height = 0;
  for (const LineRoom& line : lines) height += line.advance;
  return height <= strip.Room();
}

}  // namespace

int PageStrip::PageOf(double y) const {
  return std::max(0, static_cast<int>(std::floor(y / height)));
}

std::vector<double> StackLines(const PageStrip& strip, const std::vector<LineRoom>& lines, double y, bool keepTogether) {
  std::vector<double> tops = Stack(strip, lines, y, kNone);
  std::vector<std::size_t> breaks = BreaksIn(strip, tops);
  if (breaks.empty()) return tops;
  const bool isKept = keepTogether && FitsOnPage(strip, lines);
  const bool isTooShort = breaks.front() < kLeast || lines.size() < 2 * kLeast;
  if ((isKept || isTooShort) && !strip.IsAtTop(tops.front())) {
    tops = Stack(strip, lines, strip.NextTop(tops.front()), kNone);
    breaks = BreaksIn(strip, tops);
  }
  const bool leavesOne = !breaks.empty() && lines.size() - breaks.back() < kLeast;
  if (!leavesOne) return tops;
  const std::size_t earlier = lines.size() - kLeast;
  const std::size_t before = breaks.size() > 1 ? breaks[breaks.size() - 2] : 0;
  return earlier >= before + kLeast ? Stack(strip, lines, tops.front(), earlier) : tops;
}

double EndOf(const std::vector<LineRoom>& lines, const std::vector<double>& tops) {
  if (lines.empty()) return 0;
  return tops.back() + std::max(lines.back().advance, lines.back().bottom);
}

}  // namespace snipdeck

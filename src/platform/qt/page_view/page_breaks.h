#pragma once

#include <vector>

#include "platform/qt/layout/paragraph_lines.h"

namespace snipdeck {

/// Pages of equal heights below each other; a page keeps `margin` free above and below. All in pixels.
struct PageStrip {
  double height = 0;
  double margin = 0;

  int PageOf(double y) const;
  double TopOf(int page) const { return page * height + margin; }
  double BottomOf(int page) const { return (page + 1) * height - margin; }
  double NextTop(double y) const { return TopOf(PageOf(y) + 1); }
  double Room() const { return height - 2 * margin; }
  bool IsAtTop(double y) const { return y <= TopOf(PageOf(y)); }
};

/// Where the lines of a paragraph begin that stands at `y`, with what may not fit on a page on the next one. A paragraph
/// that is kept together, and fits on a page, stays on one; of any other at least two lines stay on either side.
std::vector<double> StackLines(const PageStrip& strip, const std::vector<LineRoom>& lines, double y, bool keepTogether);

/// Where what follows such a paragraph may begin.
double EndOf(const std::vector<LineRoom>& lines, const std::vector<double>& tops);

}  // namespace snipdeck

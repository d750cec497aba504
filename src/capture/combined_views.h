#pragma once

#include "capture/box_set.h"

namespace snipdeck {

/// Commands that show the boxes' texts together.
class CombinedViews {
 public:
  explicit CombinedViews(BoxSet& boxes) : m_boxes(boxes) {}

  /// Shows the cumulative box over the boxes.
  void ShowCumulative();
  /// Shows the cumulative box, or returns from it to the boxes.
  void ToggleCumulative();

 private:
  BoxSet& m_boxes;
};

}  // namespace snipdeck

#pragma once

#include <functional>

#include "capture/box_set.h"

namespace snipdeck {

/// Commands on the boxes as a whole.
class CombinedViews {
 public:
  CombinedViews(BoxSet& boxes, MessageBox& messages) : m_boxes(boxes), m_messages(messages) {}

  /// What fills an empty cumulative box when it is shown; nothing does until this is set.
  void SetLoadContentsFile(std::function<void()> load) { m_loadContentsFile = std::move(load); }

  /// Shows the texts of all boxes one after the other in the large view, unless that is shown.
  void ShowAllInOne();
  /// Puts the whole text of the large view on the clipboard, and tells the user so.
  void CopyOneBox();
  /// Shows the cumulative box over the boxes.
  void ShowCumulative();
  /// Shows the cumulative box, or returns from it to the boxes.
  void ToggleCumulative();
  /// Empties the boxes after a question.
  void EmptyAllBoxes();

 private:
  void RaiseCumulative();

  BoxSet& m_boxes;
  MessageBox& m_messages;
  std::function<void()> m_loadContentsFile = [] {};
};

}  // namespace snipdeck

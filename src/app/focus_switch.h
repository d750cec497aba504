#pragma once

#include "capture/box_set.h"
#include "navigation/sidebar.h"

namespace snipdeck {

/// Moves the focus to and fro between the text and the sidebar.
class FocusSwitch {
 public:
  FocusSwitch(BoxSet& boxes, Sidebar& sidebar) : m_boxes(boxes), m_sidebar(sidebar) {}

  /// The first call goes to the text, the next one to the sidebar, and so on; also where there is nothing to go to.
  void SwitchFocus();

 private:
  void FocusText();

  BoxSet& m_boxes;
  Sidebar& m_sidebar;
  bool m_sidebarIsDue = false;
};

}  // namespace snipdeck

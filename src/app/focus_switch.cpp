#include "app/focus_switch.h"

namespace snipdeck {

void FocusSwitch::SwitchFocus() {
  if (m_sidebarIsDue) {
    m_sidebar.TakeFocus();
  } else {
    FocusText();
  }
  m_sidebarIsDue = !m_sidebarIsDue;
}

void FocusSwitch::FocusText() {
  if (m_boxes.Frame1->isVisible()) return m_boxes.TXTextControl1().setFocus();
  if (m_boxes.Frame2->isVisible()) return m_boxes.TXTextControl2().setFocus();
  if (m_boxes.FocusedBox >= 1 && m_boxes.FocusedBox <= kBoxCount) m_boxes.Box(m_boxes.FocusedBox).setFocus();
}

}  // namespace snipdeck

#include "capture/combined_views.h"

namespace snipdeck {

void CombinedViews::ShowCumulative() {
  m_boxes.HideAllBoxes();
  m_boxes.Frame2->SetCaption(QStringLiteral(" Cumulative clipboard text box "));
  m_boxes.Frame2->show();
  m_boxes.Frame2->raise();
  m_boxes.TXTextControl2().setFocus();
}

void CombinedViews::ToggleCumulative() {
  if (!m_boxes.Frame2->isVisible()) return ShowCumulative();
  m_boxes.Frame2->hide();
  m_boxes.ShowAllBoxes();
}

}  // namespace snipdeck

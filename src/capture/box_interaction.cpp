#include "capture/box_interaction.h"

#include <QMouseEvent>

namespace snipdeck {

namespace {

bool IsCtrlClick(const QEvent& event) {
  if (event.type() != QEvent::MouseButtonPress) return false;
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  return mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::ControlModifier;
}

}  // namespace

BoxInteraction::BoxInteraction(BoxSet& boxes) : QObject(&boxes), m_boxes(boxes) {
  for (int n = 1; n <= kBoxCount; ++n) m_boxes.Box(n).viewport()->installEventFilter(this);
  m_boxes.TXTextControl1().viewport()->installEventFilter(this);
}

bool BoxInteraction::eventFilter(QObject* watched, QEvent* event) {
  if (!IsCtrlClick(*event)) return QObject::eventFilter(watched, event);
  if (watched == m_boxes.TXTextControl1().viewport()) {
    WriteBack();
    return true;
  }
  for (int n = 1; n <= kBoxCount; ++n) {
    if (watched == m_boxes.Box(n).viewport()) m_boxes.OpenBoxInLargeView(n);
  }
  return true;
}

void BoxInteraction::ToggleFullScreen() {
  m_boxes.Frame2->hide();
  if (!m_boxes.Frame1->isVisible()) {
    m_boxes.OpenBoxInLargeView(m_boxes.FocusedBox);
    m_boxes.TXTextControl1().setFocus();
  } else {
    m_boxes.Frame1->hide();
    m_boxes.ShowAllBoxes();
    m_boxes.Box(1).setFocus();
  }
}

void BoxInteraction::WriteBack() {
  RichTextControl& large = m_boxes.TXTextControl1();
  large.SetSelStart(0);
  large.SetSelLength(-1);
  if (m_boxes.FocusedBox >= 1 && m_boxes.FocusedBox <= kBoxCount) {
    RichTextControl& box = m_boxes.Box(m_boxes.FocusedBox);
    box.SetText(QString());
    box.SetSelRichText(large.SelRichText());
  }
  m_boxes.Frame1->hide();
  m_boxes.ShowAllBoxes();
}

}  // namespace snipdeck

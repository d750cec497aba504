#include "editor/ruler_guide.h"

#include <QMouseEvent>

#include "platform/qt/rich_text_control.h"
#include "platform/qt/ruler.h"

namespace snipdeck {

RulerGuide::RulerGuide(TXRuler& ruler, RichTextControl& control)
    : QFrame(&control), m_ruler(ruler), m_control(control) {
  setObjectName("tabHairline");
  setFrameStyle(QFrame::VLine | QFrame::Plain);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  // Paper is light in every theme.
  QPalette onPaper = palette();
  onPaper.setColor(QPalette::WindowText, Qt::black);
  setPalette(onPaper);
  hide();
  ruler.installEventFilter(this);
}

bool RulerGuide::eventFilter(QObject*, QEvent* event) {
  const auto& mouse = static_cast<const QMouseEvent&>(*event);
  if (event->type() == QEvent::MouseButtonPress && mouse.button() == Qt::LeftButton)
    ShowAt(mouse.position().toPoint().x());
  if (event->type() == QEvent::MouseMove && mouse.buttons() & Qt::LeftButton) ShowAt(mouse.position().toPoint().x());
  if (event->type() == QEvent::MouseButtonRelease) hide();
  return false;
}

void RulerGuide::ShowAt(int rulerX) {
  setGeometry(m_ruler.x() + rulerX - m_control.x(), 0, 1, m_control.height());
  raise();
  show();
}

}  // namespace snipdeck

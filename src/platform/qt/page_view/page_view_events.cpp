#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QScrollBar>

#include "platform/qt/page_view/page_view.h"
#include "platform/qt/rich_text_control.h"

// How the mouse and the input method reach the control that lies below a page view.

namespace snipdeck {
namespace {

constexpr int kDragPause = 40;  // milliseconds between two steps of scrolling while the mouse is held outside

int PreeditCaret(const QInputMethodEvent& event) {
  for (const QInputMethodEvent::Attribute& attribute : event.attributes())
    if (attribute.type == QInputMethodEvent::Cursor) return attribute.start;
  return static_cast<int>(event.preeditString().size());
}

}  // namespace

bool PageView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &m_control) return QAbstractScrollArea::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::Resize:
      setGeometry(m_control.contentsRect());
      break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      QMetaObject::invokeMethod(this, &PageView::ShowCaret, Qt::QueuedConnection);
      break;
    case QEvent::InputMethod:
      m_preeditCaret = PreeditCaret(*static_cast<QInputMethodEvent*>(event));
      viewport()->update();
      break;
    default:
      break;
  }
  return false;
}

bool PageView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      PassMouse(*static_cast<QMouseEvent*>(event));
      return true;
    case QEvent::ContextMenu:
      PassContextMenu(*static_cast<QContextMenuEvent*>(event));
      return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      PassDrag(*static_cast<QDropEvent*>(event));
      return true;
    case QEvent::DragLeave:
      m_dropPosition = -1;
      viewport()->update();
      return QCoreApplication::sendEvent(m_control.viewport(), event);
    default:
      return QAbstractScrollArea::viewportEvent(event);
  }
}

// The control takes a point outside its viewport for a wish to scroll, so the meant place is first brought inside.
QPointF PageView::PointForControl(const QPointF& viewPoint) {
  const QPointF dot = DotAt(viewPoint);
  QScrollBar& across = *m_control.horizontalScrollBar();
  QScrollBar& down = *m_control.verticalScrollBar();
  across.setValue(qRound(dot.x()) - m_control.viewport()->width() / 2);
  down.setValue(qRound(dot.y()) - m_control.viewport()->height() / 2);
  return dot - QPointF(across.value(), down.value());
}

void PageView::PassMouse(QMouseEvent& event) {
  const bool isPress = event.type() == QEvent::MouseButtonPress;
  if (isPress && !m_control.hasFocus() && (m_control.focusPolicy() & Qt::ClickFocus))
    m_control.setFocus(Qt::MouseFocusReason);
  const bool isOutside = !viewport()->rect().contains(event.position().toPoint());
  if (event.type() == QEvent::MouseMove && (event.buttons() & Qt::LeftButton) && isOutside) {
    if (!m_dragging.isActive()) m_dragging.start(kDragPause, this);
  } else {
    m_dragging.stop();
  }
  const QPointF point = PointForControl(event.position());
  QMouseEvent passed(event.type(), point, m_control.viewport()->mapTo(m_control.window(), point),
                     event.globalPosition(), event.button(), event.buttons(), event.modifiers(),
                     event.pointingDevice());
  QCoreApplication::sendEvent(m_control.viewport(), &passed);
  event.setAccepted(passed.isAccepted());
  viewport()->setCursor(m_control.viewport()->cursor());
}

// Selecting with the mouse goes on beyond the edge, the faster the farther.
void PageView::ScrollBesides() {
  const QPoint point = viewport()->mapFromGlobal(QCursor::pos());
  const QRect shown = viewport()->rect();
  if (shown.contains(point) || !(QApplication::mouseButtons() & Qt::LeftButton)) return m_dragging.stop();
  const QPoint beyond(point.x() - std::clamp(point.x(), shown.left(), shown.right()),
                      point.y() - std::clamp(point.y(), shown.top(), shown.bottom()));
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + beyond.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() + beyond.y());
  QMouseEvent moved(QEvent::MouseMove, point, viewport()->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                    QApplication::keyboardModifiers());
  PassMouse(moved);
}

void PageView::PassContextMenu(QContextMenuEvent& event) {
  const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
  const QPointF caret = CaretAt(CaretPosition()).bottomLeft();
  const QPointF at = byKey ? caret : QPointF(event.pos());
  const QPoint global = byKey ? viewport()->mapToGlobal(caret.toPoint()) : event.globalPos();
  QContextMenuEvent passed(event.reason(), PointForControl(at).toPoint(), global, event.modifiers());
  QCoreApplication::sendEvent(m_control.viewport(), &passed);
}

void PageView::PassDrag(QDropEvent& event) {
  const QPointF point = PointForControl(event.position());
  const auto pass = [&](auto&& passed) {
    passed.setDropAction(event.dropAction());
    QCoreApplication::sendEvent(m_control.viewport(), &passed);
    event.setDropAction(passed.dropAction());
    event.setAccepted(passed.isAccepted());
  };
  const auto actions = event.possibleActions();
  if (event.type() == QEvent::Drop) {
    pass(QDropEvent(point, actions, event.mimeData(), event.buttons(), event.modifiers()));
  } else if (event.type() == QEvent::DragEnter) {
    pass(QDragEnterEvent(point.toPoint(), actions, event.mimeData(), event.buttons(), event.modifiers()));
  } else {
    pass(QDragMoveEvent(point.toPoint(), actions, event.mimeData(), event.buttons(), event.modifiers()));
  }
  m_dropPosition = event.type() == QEvent::Drop || !event.isAccepted() ? -1 : PositionAt(event.position());
  viewport()->update();
}

// Ctrl changes the size, as in the normal view.
void PageView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() != Qt::ControlModifier) return QAbstractScrollArea::wheelEvent(event);
  QCoreApplication::sendEvent(m_control.viewport(), event);
}

}  // namespace snipdeck

#include "platform/qt/qt_window_geometry.h"

#include <QWindow>

#include "platform/units.h"

namespace snipdeck {

double QtWindowGeometry::Left() const {
  return TwipsFromPixels(Corner().x());
}

double QtWindowGeometry::Top() const {
  return TwipsFromPixels(Corner().y());
}

double QtWindowGeometry::Width() const {
  return TwipsFromPixels(m_window.width() + Frame().width());
}

double QtWindowGeometry::Height() const {
  return TwipsFromPixels(m_window.height() + Frame().height());
}

void QtWindowGeometry::SetLeft(double twips) {
  m_window.move(PixelsFromTwips(twips), Corner().y());
}

void QtWindowGeometry::SetTop(double twips) {
  m_window.move(Corner().x(), PixelsFromTwips(twips));
}

void QtWindowGeometry::SetWidth(double twips) {
  m_sizedWithoutFrame = m_sizedWithoutFrame || Frame().isNull();
  m_window.resize(PixelsFromTwips(twips) - Frame().width(), m_window.height());
}

void QtWindowGeometry::SetHeight(double twips) {
  m_sizedWithoutFrame = m_sizedWithoutFrame || Frame().isNull();
  m_window.resize(m_window.width(), PixelsFromTwips(twips) - Frame().height());
}

void QtWindowGeometry::FitFrame() {
  if (!m_sizedWithoutFrame || Frame().isNull()) return;
  m_sizedWithoutFrame = false;
  if (!m_window.isMaximized() && !m_window.isFullScreen()) m_window.resize(m_window.size() - Frame());
}

QSize QtWindowGeometry::Frame() const {
  if (const QWindow* shown = Shown()) {
    const QMargins margins = shown->frameMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
  }
  return m_window.frameGeometry().size() - m_window.size();
}

QPoint QtWindowGeometry::Corner() const {
  const QWindow* shown = Shown();
  return shown ? shown->framePosition() : m_window.pos();
}

// A widget keeps the frame that its window had when it was last moved; the window itself asks the desktop.
const QWindow* QtWindowGeometry::Shown() const {
  return m_window.isVisible() ? m_window.windowHandle() : nullptr;
}

}  // namespace snipdeck

#include "platform/qt/qt_window_geometry.h"

#include "platform/units.h"

namespace snipdeck {

double QtWindowGeometry::Left() const {
  return TwipsFromPixels(m_window.x());
}

double QtWindowGeometry::Top() const {
  return TwipsFromPixels(m_window.y());
}

double QtWindowGeometry::Width() const {
  return TwipsFromPixels(m_window.frameGeometry().width());
}

double QtWindowGeometry::Height() const {
  return TwipsFromPixels(m_window.frameGeometry().height());
}

void QtWindowGeometry::SetLeft(double twips) {
  m_window.move(PixelsFromTwips(twips), m_window.y());
}

void QtWindowGeometry::SetTop(double twips) {
  m_window.move(m_window.x(), PixelsFromTwips(twips));
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
  return m_window.frameGeometry().size() - m_window.size();
}

}  // namespace snipdeck

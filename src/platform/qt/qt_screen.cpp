#include "platform/qt/qt_screen.h"

#include <QGuiApplication>
#include <QScreen>

#include "platform/units.h"

namespace snipdeck {

WorkArea QtScreen::Area() const {
  const QScreen* screen = m_window ? m_window->screen() : QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QRect area = screen->availableGeometry();
  return {TwipsFromPixels(area.left()), TwipsFromPixels(area.top()), TwipsFromPixels(area.width()),
          TwipsFromPixels(area.height())};
}

}  // namespace snipdeck

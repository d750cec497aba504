#include "platform/qt/normal_state.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace snipdeck {

namespace {

constexpr int kLongestWait = 500;  // milliseconds
constexpr int kWakeEvery = 10;     // milliseconds

}  // namespace

void BringToNormalState(QWidget& window) {
  constexpr Qt::WindowStates kOther = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;
  if (!(window.windowState() & kOther)) return;
  const QRect before = window.geometry();
  window.setWindowState(window.windowState() & ~kOther);
  const QDeadlineTimer deadline(kLongestWait);
  QTimer wake;
  wake.start(kWakeEvery);
  while (window.geometry() == before && !deadline.hasExpired())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace snipdeck

#include "platform/qt/normal_state.h"

#include <functional>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace snipdeck {

namespace {

constexpr int kLongestWait = 500;  // milliseconds
constexpr int kWakeEvery = 10;     // milliseconds
/// Many window managers give a normal window another frame than a maximised one, and tell it a little later.
constexpr int kFrameFollowsWithin = 200;  // milliseconds

void HandleEventsWhile(const std::function<bool()>& condition, int milliseconds) {
  const QDeadlineTimer deadline(milliseconds);
  while (condition() && !deadline.hasExpired())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace

void BringToNormalState(QWidget& window) {
  constexpr Qt::WindowStates kOther = Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen;
  if (!(window.windowState() & kOther)) return;
  const QRect before = window.geometry();
  window.setWindowState(window.windowState() & ~kOther);
  QTimer wake;
  wake.start(kWakeEvery);
  HandleEventsWhile([&] { return window.geometry() == before; }, kLongestWait);
  HandleEventsWhile([] { return true; }, kFrameFollowsWithin);
}

}  // namespace snipdeck

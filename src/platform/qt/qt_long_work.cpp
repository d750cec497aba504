#include "platform/qt/qt_long_work.h"

#include <atomic>
#include <memory>

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include "platform/qt/dialogs/progress_dialog.h"

namespace snipdeck {

namespace {

constexpr int kQuietTime = 500;  // milliseconds
constexpr int kShowEvery = 100;  // milliseconds
constexpr int kStillRunning = 1;

/// What the thread of the work and the one of the windows tell each other.
struct Signals {
  std::atomic<double> part = -1;
  std::atomic<bool> isCancelled = false;
};

// Until the work has ended. What the user does meanwhile is kept for later at first; the dialog then keeps it away.
void WaitQuietly(QEventLoop& loop, QThread& thread) {
  QTimer::singleShot(kQuietTime, &loop, [&loop] { loop.exit(kStillRunning); });
  if (!thread.isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void WaitWithDialog(const QString& what, Signals& told, QThread& thread) {
  ProgressDialog dialog(what, QApplication::activeWindow());
  QObject::connect(&thread, &QThread::finished, &dialog, &QDialog::accept);
  QTimer show;
  QObject::connect(&show, &QTimer::timeout, &dialog, [&] { dialog.ShowPart(told.part); });
  show.start(kShowEvery);
  QObject::connect(&dialog, &ProgressDialog::Cancelled, &dialog, [&] { told.isCancelled = true; });
  // The end of the program ends the dialog, too.
  if (!thread.isFinished() && dialog.exec() != QDialog::Accepted) told.isCancelled = true;
}

}  // namespace

bool QtLongWork::Run(const QString& what, const Work& work) {
  Signals told;
  const std::unique_ptr<QThread> thread(QThread::create([&] {
    work([&told](double part) {
      told.part = part;
      return !told.isCancelled;
    });
  }));
  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  thread->start();
  WaitQuietly(loop, *thread);
  if (!thread->isFinished()) WaitWithDialog(what, told, *thread);
  thread->wait();
  return !told.isCancelled;
}

}  // namespace snipdeck

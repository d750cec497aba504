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

/// One run: turns, thread, turns, each begun by the end of the one before it.
class LongRun {
 public:
  LongRun(const LongWork::Work& work, const LongWork::Turns& turns)
      : m_turns(turns), m_thread(QThread::create([this, &work] {
          work([this](double part) {
            m_part = part;
            return !m_isCancelled;
          });
        })) {
    QObject::connect(m_thread.get(), &QThread::finished, &m_loop, [this] { BeginAfter(); });
    QObject::connect(&m_turn, &QTimer::timeout, &m_loop, [this] { TakeTurn(); });
  }

  bool Run(const QString& what) {
    m_turn.start(0);
    WaitQuietly();
    if (!m_isDone) WaitWithDialog(what);
    // The end of the program ends all waiting.
    if (!m_isDone) Abandon();
    m_thread->wait();
    return !m_isCancelled;
  }

 private:
  // What the user does meanwhile is kept for later at first; the dialog then keeps it away.
  void WaitQuietly() {
    QTimer::singleShot(kQuietTime, &m_loop, &QEventLoop::quit);
    m_loop.exec(QEventLoop::ExcludeUserInputEvents);
  }

  void WaitWithDialog(const QString& what) {
    ProgressDialog dialog(what, QApplication::activeWindow());
    m_dialog = &dialog;
    QTimer show;
    QObject::connect(&show, &QTimer::timeout, &dialog, [&] { dialog.ShowPart(m_part); });
    show.start(kShowEvery);
    QObject::connect(&dialog, &ProgressDialog::Cancelled, &dialog, [this] { m_isCancelled = true; });
    dialog.SetCancellable(!m_isAfter);
    dialog.exec();
    m_dialog = nullptr;
  }

  void TakeTurn() {
    const LongWork::Turn& turn = m_isAfter ? m_turns.after : m_turns.before;
    const bool isStopped = m_isCancelled && !m_isAfter;
    if (!isStopped && turn && turn()) return;
    m_turn.stop();
    if (m_isAfter || isStopped) return End();
    m_thread->start();
  }

  void BeginAfter() {
    if (m_isCancelled || !m_turns.after) return End();
    m_isAfter = true;
    m_part = -1;
    if (m_dialog) m_dialog->SetCancellable(false);
    m_turn.start(0);
  }

  void End() {
    m_isDone = true;
    m_loop.quit();
    if (m_dialog) m_dialog->accept();
  }

  void Abandon() {
    m_turn.stop();
    if (!m_isAfter) m_isCancelled = true;
    while (m_isAfter && m_turns.after()) {
    }
  }

  const LongWork::Turns& m_turns;
  // Shared with the thread of the work.
  std::atomic<double> m_part = -1;
  std::atomic<bool> m_isCancelled = false;

  bool m_isAfter = false;
  bool m_isDone = false;
  ProgressDialog* m_dialog = nullptr;
  const std::unique_ptr<QThread> m_thread;
  QTimer m_turn;
  QEventLoop m_loop;
};

}  // namespace

bool QtLongWork::Run(const QString& what, const Work& work, const Turns& turns) {
  return LongRun(work, turns).Run(what);
}

}  // namespace snipdeck

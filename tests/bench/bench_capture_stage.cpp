#include "bench_capture_stage.h"

#include <chrono>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>

#include "app/program_folder.h"

namespace snipdeck::bench {

namespace {

constexpr int kCopySize = 1000;
const QString kPrefix = QStringLiteral("copy ");

/// The number in "copy 17 xxxx"; 0 for any other text.
int NumberOf(const QString& text) {
  return text.startsWith(kPrefix) ? text.mid(kPrefix.size()).section(QLatin1Char(' '), 0, 0).toInt() : 0;
}

QStringList OwnerArguments(int count, int interval, CaptureStage::Owner owner) {
  QStringList arguments{QStringLiteral("UTF8_STRING:copy %d "),
                        QStringLiteral("--count"),
                        QString::number(count),
                        QStringLiteral("--interval"),
                        QString::number(interval),
                        QStringLiteral("--size"),
                        QString::number(kCopySize)};
  if (owner == CaptureStage::Owner::NewProcessEach) arguments << QStringLiteral("--new-process");
  return arguments;
}

/// Reads the owner's lines "took NUMBER NANOSECONDS".
std::vector<qint64> TakenTimes(const QString& path, int count) {
  std::vector<qint64> times(static_cast<size_t>(count) + 1, 0);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return times;
  for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() == 3 && words[0] == "took") times.at(words[1].toULongLong()) = words[2].toLongLong();
  }
  return times;
}

}  // namespace

qint64 Now() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void TimedWatch::StartWatching(Handler onChange) {
  m_isWatching = true;
  m_inner.StartWatching([this, onChange = std::move(onChange)] {
    onChange();
    m_afterChange();
  });
}

MainWindowServices Outside::Services(ChangeWatch& watch, const Clipboard& clipboard, const QString& folder) {
  return {watch,
          clipboard,
          m_access,
          m_access,
          m_functions,
          m_messages,
          screen,
          m_files,
          m_shell,
          m_windows,
          m_fileDialogs,
          m_fontColourDialogs,
          m_printDialog,
          m_longWork,
          QCoreApplication::applicationDirPath(),
          folder,
          InstalledSettingsPath()};
}

CaptureStage::CaptureStage()
    : m_watch(m_clipboard, [this] { NoteCapture(); }),
      m_window(m_outside.Services(m_watch, m_clipboard, m_folder.path())) {
  m_outside.screen.Follow(&m_window);
  m_window.Form_Load();
  m_window.show();
  if (!RunUntil([this] { return m_watch.IsWatching(); }, 10'000)) qFatal("the window did not become active");
}

void CaptureStage::NoteCapture() {
  const qint64 now = Now();
  BoxSet& boxes = m_window.Boxes();
  const int number = boxes.CurrentBox == 0 ? 0 : NumberOf(boxes.Box(boxes.CurrentBox).Text());
  if (number > 0) m_captures.push_back({number, now});
  if (m_onCapture) m_onCapture();
}

bool CaptureStage::RunUntil(const std::function<bool()>& isDone, int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, [&loop] { loop.exit(1); });
  // Asked after each capture, and now and then for what is not a capture.
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
    if (isDone()) loop.exit(0);
  });
  poll.start(100);
  m_onCapture = [&] {
    if (isDone()) loop.exit(0);
  };
  const bool done = loop.exec() == 0;
  m_onCapture = nullptr;
  return done;
}

void CaptureStage::Settle() {
  RunUntil([] { return false; }, 4'000);
}

CaptureStage::Run CaptureStage::RunCopies(int count, int interval, Owner owner) {
  m_captures.clear();
  m_captures.reserve(static_cast<size_t>(count));
  QTemporaryFile log;
  if (!log.open()) qFatal("no temporary file");
  QProcess process;
  // Into a file, so that reading it does not fall into what is measured.
  process.setStandardOutputFile(log.fileName());
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QStringLiteral(CLIPBOARD_OWNER), OwnerArguments(count, interval, owner));
  if (!process.waitForStarted()) qFatal("clipboard_owner does not start");
  // A new process for each copy takes some milliseconds more than the interval.
  RunUntil([&] { return !m_captures.empty() && m_captures.back().number == count; }, count * (interval + 15) + 5'000);
  process.kill();
  process.waitForFinished();
  return {m_captures, TakenTimes(log.fileName(), count)};
}

}  // namespace snipdeck::bench

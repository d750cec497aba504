// bench_capture [latency|bursts|memory|start]...: how fast copies of other programs arrive, how many of a burst, how
// much memory that takes, and how fast the window is there. Prints each figure with its mark; exit status 1 if one is
// missed.
#include <algorithm>
#include <cstdio>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include "app/program_folder.h"
#include "app/single_instance.h"
#include "bench_capture_stage.h"

using namespace snipdeck;
using namespace snipdeck::bench;

namespace {

bool g_missedMark = false;

void PrintFigure(const char* what, double value, const char* unit, double mark) {
  const bool met = value <= mark;
  g_missedMark |= !met;
  std::printf("  %-66s %8.1f %s (mark: %.1f or less)%s\n", what, value, unit, mark, met ? "" : "  MISSED");
  std::fflush(stdout);
}

struct Latency {
  double median;
  double p99;
};

/// How long the lost copies stood before the next one, in milliseconds, for whoever looks into a loss.
void PrintLost(const CaptureStage::Run& run) {
  std::vector<bool> captured(run.takenAt.size() + 1, false);
  for (const auto& capture : run.captures) captured.at(static_cast<size_t>(capture.number)) = true;
  for (size_t n = 1; n + 1 < run.takenAt.size(); ++n) {
    if (captured[n]) continue;
    const double stood = static_cast<double>(run.takenAt[n + 1] - run.takenAt[n]) / 1e6;
    std::printf("    copy %zu was lost; it stood %.1f ms\n", n, stood);
  }
}

/// In milliseconds, from taking the clipboard to the text in the box; 200 copies.
Latency MeasureLatency(CaptureStage& stage) {
  constexpr int kCount = 200;
  const auto run = stage.RunCopies(kCount, 40, CaptureStage::Owner::One);
  std::vector<double> times;
  for (const auto& capture : run.captures) {
    times.push_back(static_cast<double>(capture.nanoseconds - run.takenAt.at(static_cast<size_t>(capture.number))) /
                    1e6);
  }
  if (times.size() != kCount) {
    std::printf("  only %zu of %d copies arrived\n", times.size(), kCount);
    PrintLost(run);
    g_missedMark = true;
    if (times.empty()) return {1e9, 1e9};
  }
  std::sort(times.begin(), times.end());
  return {times[times.size() / 2], times[times.size() * 99 / 100]};
}

void FillCumulative(CaptureStage& stage, qsizetype size) {
  const QString line =
      QStringLiteral("a line of eighty characters, as they stand in a text that somebody has copied..\n");
  stage.Window().Boxes().TXTextControl2().AppendText(line.repeated(size / line.size() + 1));
}

void BenchLatency() {
  CaptureStage stage;
  const Latency empty = MeasureLatency(stage);
  PrintFigure("latency of 200 copies of 1 kB, median", empty.median, "ms", 10);
  PrintFigure("latency of 200 copies of 1 kB, 99th percentile", empty.p99, "ms", 30);
  FillCumulative(stage, 10'000'000);
  stage.Settle();
  const Latency full = MeasureLatency(stage);
  PrintFigure("the same with 10 MB in the cumulative box, median", full.median, "ms", 2 * empty.median);
  PrintFigure("the same with 10 MB in the cumulative box, 99th percentile", full.p99, "ms", 2 * empty.p99);
}

void BenchBurst(const char* what, int interval, CaptureStage::Owner owner) {
  constexpr int kCount = 1000;
  CaptureStage stage;
  const auto run = stage.RunCopies(kCount, interval, owner);
  bool inOrder = true;
  for (size_t i = 1; i < run.captures.size(); ++i) inOrder &= run.captures[i - 1].number < run.captures[i].number;
  const bool met = run.captures.size() == kCount && inOrder;
  g_missedMark |= !met;
  std::printf("  %d copies %2d ms apart, %-38s %8zu captured, %s (mark: all, in order)%s\n", kCount, interval, what,
              run.captures.size(), inOrder ? "in order" : "not in order", met ? "" : "  MISSED");
  PrintLost(run);
  std::fflush(stdout);
}

void BenchBursts() {
  for (const int interval : {25, 10}) {
    BenchBurst("one owner", interval, CaptureStage::Owner::One);
    BenchBurst("a new owner process each time", interval, CaptureStage::Owner::NewProcessEach);
  }
}

/// Resident memory of this process in MB.
double ResidentMegabytes() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 1e9;
  const QByteArray text = status.readAll();
  return text.mid(text.indexOf("VmRSS:") + 6).simplified().split(' ').first().toDouble() / 1024;
}

void BenchMemory() {
  CaptureStage stage;
  QApplication::processEvents();
  const double atStart = ResidentMegabytes();
  PrintFigure("resident memory after the start", atStart, "MB", 60);
  constexpr int kCount = 10'000;
  const size_t captured = stage.RunCopies(kCount, 5, CaptureStage::Owner::One).captures.size();
  const double full = ResidentMegabytes();
  stage.Window().Boxes().TXTextControl2().SetText(QString());
  QApplication::processEvents();
  std::printf("  %zu of %d copies 5 ms apart captured; resident memory before emptying %.1f MB\n", captured, kCount,
              full);
  PrintFigure("growth after 10,000 captures of 1 kB, cumulative box emptied", ResidentMegabytes() - atStart, "MB", 20);
}

/// Tells when a window has been painted for the first time.
class FirstPaint : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    // The event loop comes round again when the painted window has been sent to the display.
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, [] { QApplication::exit(0); });
    return false;
  }
};

/// What main() does, up to the first painted window; then prints the time.
int RunStartChild(int argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("QM_Snipdeck"));
  const QString folder = ProgramFolder();
  const SingleInstance instance(folder);
  QApplication application(argc, argv);
  X11ClipboardWatch clipboard;
  Outside outside;
  frmSnipdeck window(outside.Services(clipboard, clipboard, folder));
  outside.screen.Follow(&window);
  window.Form_Load();
  FirstPaint painted;
  window.installEventFilter(&painted);
  window.show();
  QApplication::exec();
  std::printf("%lld\n", static_cast<long long>(Now()));
  return 0;
}

void BenchStart() {
  std::vector<double> times;
  for (int i = 0; i < 11; ++i) {
    QProcess child;
    const qint64 begin = Now();
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("start-child")});
    child.waitForFinished();
    times.push_back(static_cast<double>(child.readAllStandardOutput().trimmed().toLongLong() - begin) / 1e6);
  }
  std::sort(times.begin(), times.end());
  PrintFigure("start to the first painted window, median of 11", times[times.size() / 2], "ms", 300);
  PrintFigure("start to the first painted window, slowest of 11", times.back(), "ms", 300);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && qstrcmp(argv[1], "start-child") == 0) return RunStartChild(argc, argv);
  QApplication application(argc, argv);
  const QStringList wanted = QApplication::arguments().mid(1);
  const auto isWanted = [&](const char* name) {
    return wanted.isEmpty() || wanted.contains(QString::fromLatin1(name));
  };
  // The memory first, before anything else has taken some.
  if (isWanted("memory")) BenchMemory();
  if (isWanted("start")) BenchStart();
  if (isWanted("latency")) BenchLatency();
  if (isWanted("bursts")) BenchBursts();
  return g_missedMark ? 1 : 0;
}

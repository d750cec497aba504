/// bench_files [MEGABYTES]: how long loading and saving a long text takes, in each format, and how long the window stands
/// still meanwhile; then saving and loading twelve boxes of 1 MB. Run it with QT_QPA_PLATFORM=offscreen, or on a display.
/// In processor time, of all threads and of the window's thread, so that other programs at work disturb little.

#include <cstdio>
#include <ctime>
#include <functional>

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include "app/crash_recovery.h"
#include "app/stored_box_set.h"
#include "bench/cpu_clock.h"
#include "capture/capturing_boxes.h"
#include "platform/qt/qt_long_work.h"
#include "richtext/document_file.h"

using namespace snipdeck;

namespace {

constexpr int kMegabyte = 1'000'000;
constexpr int kBeat = 2;  // milliseconds

/// The longest time between two beats of the event loop, as long as it lives.
class LongestStop {
 public:
  LongestStop() {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { Beat(); });
    m_timer.start(kBeat);
  }
  double Take() {
    Beat();
    return std::exchange(m_longest, 0);
  }

 private:
  void Beat() {
    const double now = CpuMilliseconds();
    m_longest = std::max(m_longest, now - std::exchange(m_last, now));
  }
  QTimer m_timer;
  double m_last = CpuMilliseconds();
  double m_longest = 0;
};

void Settle() {
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < 2500) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

void Step(LongestStop& stop, const QString& what, const std::function<void()>& work) {
  Settle();
  stop.Take();
  const std::clock_t begin = std::clock();
  work();
  const double taken = static_cast<double>(std::clock() - begin) * 1e3 / CLOCKS_PER_SEC;
  const double longest = stop.Take();
  Settle();
  std::printf("  %-28s %8.1f ms, longest stop %7.1f ms, afterwards %7.1f ms\n", qPrintable(what), taken, longest,
              stop.Take());
  std::fflush(stdout);
}

QByteArray Rtf(int bytes) {
  QByteArray rtf = "{\\rtf1\\ansi ";
  for (int i = 0; rtf.size() < bytes; ++i) {
    rtf += "Paragraph " + QByteArray::number(i) +
           ": the quick brown {\\b fox} jumps over the {\\i lazy} dog, again and again, until the line is long "
           "enough to wrap in a box of ordinary width.\\par\n";
  }
  return rtf + "}";
}

void BenchDocument(LongestStop& stop, int bytes) {
  struct Kind {
    const char* ending;
    FileFormat format;
  };
  const QTemporaryDir folder;
  QtLongWork work;
  RichTextControl control;
  control.SetLongWork(&work);
  control.resize(800, 600);
  control.show();
  control.SetSelRichText(RichText::FromRtf(Rtf(bytes)));
  for (const Kind kind : {Kind{"rtf", FileFormat::Rtf}, Kind{"txt", FileFormat::PlainText},
                          Kind{"html", FileFormat::Html}, Kind{"xml", FileFormat::Xml},
                          Kind{"docx", FileFormat::Docx}, Kind{"xlsx", FileFormat::Xlsx}}) {
    const QString path = folder.filePath(QString("text.%1").arg(kind.ending));
    bool ok = true;
    Step(stop, QString("save %1").arg(kind.ending), [&] { ok = ok && control.SaveFile(path, 0, kind.format); });
    Step(stop, QString("load %1").arg(kind.ending), [&] { ok = ok && control.LoadFile(path, 0, kind.format); });
    if (!ok) std::printf("  FAILED\n");
  }
}

void BenchBoxes(LongestStop& stop) {
  const QTemporaryDir folder;
  CapturingBoxes stage;
  QtLongWork work;
  BoxSet& boxes = stage.boxes;
  StoredBoxSet stored(boxes, stage.messages, work);
  CrashRecovery recovery(boxes, stage.clipboard, folder.filePath("recovery"));
  stage.window.resize(1200, 900);
  for (int n = 1; n <= kBoxCount; ++n) {
    boxes.Box(n).setGeometry(n % 2 * 600, n / 2 * 150, 600, 150);
    boxes.Box(n).SetSelRichText(RichText::FromRtf(Rtf(kMegabyte)));
  }
  stage.window.show();
  recovery.StartTracking();
  const auto path = [&](int n) { return folder.filePath(QString::number(n) + ".rtf"); };
  Step(stop, "save twelve boxes of 1 MB", [&] {
    for (int n = 1; n <= kBoxCount; ++n) stored.SaveFile(n, path(n));
  });
  Step(stop, "load twelve boxes of 1 MB", [&] {
    for (int n = 1; n <= kBoxCount; ++n) stored.LoadFile(n, path(n), FileFormat::Rtf);
  });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int megabytes = argc > 1 ? QByteArray(argv[1]).toInt() : 20;
  LongestStop stop;
  std::printf("twelve boxes\n");
  BenchBoxes(stop);
  std::printf("a text of %d MB of RTF\n", megabytes);
  BenchDocument(stop, megabytes * kMegabyte);
  return 0;
}

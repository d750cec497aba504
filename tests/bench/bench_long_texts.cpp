/// bench_long_texts [LINES [LENGTH]]: how long the window stands still at what people do with very long texts. Run it with
/// QT_QPA_PLATFORM=offscreen, or on a display. In processor time of the window's thread, so that other programs at work
/// disturb little. Prints for each step the longest turn of the event loop; exit status 1 where one takes over 250 ms.

#include <cstdio>
#include <functional>

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include "app/crash_recovery.h"
#include "app/main_window_stage.h"
#include "bench/cpu_clock.h"
#include "capture/capturing_boxes.h"

using namespace snipdeck;

namespace {

constexpr double kMark = 250;  // milliseconds
bool g_missed = false;

double Timed(const std::function<void()>& work) {
  const double begin = CpuMilliseconds();
  work();
  return CpuMilliseconds() - begin;
}

/// Runs the event loop until it has nothing to do for a while; the longest turn.
double LongestTurn() {
  double longest = 0;
  for (int idle = 0; idle < 60;) {
    const double turn = Timed([] { QCoreApplication::processEvents(); });
    longest = std::max(longest, turn);
    idle = turn < 0.3 ? idle + 1 : 0;
    QThread::msleep(turn < 0.3 ? 25 : 0);
  }
  return longest;
}

void Step(const char* what, const std::function<void()>& work) {
  const double itself = Timed(work);
  const double after = LongestTurn();
  const bool missed = std::max(itself, after) > kMark;
  g_missed |= missed;
  std::printf("  %-42s %8.1f ms, longest turn afterwards %8.1f ms%s\n", what, itself, after, missed ? "  MISSED" : "");
  std::fflush(stdout);
}

QString Lines(int count, int length) {
  const QString words = QStringLiteral("the quick brown fox jumps over the lazy dog, and then ");
  return (words.repeated(length / static_cast<int>(words.size()) + 1).left(length - 1) + '\n').repeated(count);
}

QByteArray AsRtf(const QString& text) {
  QByteArray rtf = "{\\rtf1\\ansi " + text.toLatin1();
  return rtf.replace("fox", "{\\b fox}").replace("\n", "\\par\n") + "}";
}

void Capture(MainWindowStage& stage, const QString& text, const QByteArray& rtf = {}) {
  rtf.isEmpty() ? stage.clipboard.HoldText(text) : stage.clipboard.HoldRtf(rtf, text);
  stage.window.ctlClipboard1_Changed();
}

void BenchBox(const QString& text) {
  MainWindowStage stage;
  RichTextControl& box = stage.window.Boxes().Box(1);
  stage.window.resize(1200, 800);
  LongestTurn();
  Step("capture", [&] { Capture(stage, text); });
  Step("a small copy after it", [&] { Capture(stage, QStringLiteral("small")); });
  Step("the same with formats", [&, rtf = AsRtf(text)] { Capture(stage, text, rtf); });
  Step("resize", [&] { stage.window.resize(1000, 700); });
  Step("maximise", [&] { stage.window.resize(1900, 1000); });
  Step("to the box's end", [&] { box.setFocus(), box.moveCursor(QTextCursor::End); });
  Step("to its middle by the scroll bar", [&] { box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum() / 2); });
  Step("a key at its start", [&] { box.moveCursor(QTextCursor::Start), QTest::keyClick(&box, Qt::Key_X); });
  Step("to the large view", [&] { stage.window.Boxes().FocusedBox = 1, stage.window.mnuViewBoxLarge_Click(); });
  Step("back", [&] { stage.window.mnuViewBoxLarge_Click(); });
}

void BenchCumulative(const QString& text) {
  MainWindowStage stage;
  RichTextControl& cumulative = stage.window.Boxes().TXTextControl2();
  stage.window.resize(1200, 800);
  Capture(stage, text);
  LongestTurn();
  Step("cumulative view", [&] { stage.window.mnuCumulative_Click(); });
  Step("a small copy into it", [&] { Capture(stage, QStringLiteral("small")); });
  Step("a long copy into it", [&] { Capture(stage, text); });
  Step("resize", [&] { stage.window.resize(1000, 700); });
  Step("a key in its middle", [&] {
    cumulative.SetSelStart(static_cast<int>(text.size()) / 2);
    QTest::keyClick(&cumulative, Qt::Key_X);
  });
  Step("a page up", [&] { QTest::keyClick(&cumulative, Qt::Key_PageUp); });
  Step("all of it bold", [&] { cumulative.selectAll(), cumulative.SetBold(-1); });
  Step("and back by undo", [&] { cumulative.undo(); });
  Step("to the boxes", [&] { stage.window.mnuCumulative_Click(); });
}

/// The texts of one run of the program.
struct Run : CapturingBoxes {
  CrashRecovery recovery;

  explicit Run(const QString& path) : recovery(boxes, clipboard, path) {}
  void Copy(const QString& text) {
    clipboard.HoldText(text);
    recovery.WhileCapturing([this] { capture.ProcessClipboard(); });
  }
};

void BenchRecovery(const char* what, int copies, const QString& text) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("recovery"));
  {
    Run run(path);
    run.recovery.StartTracking();
    for (int i = 0; i < copies; ++i) run.Copy(text);
  }
  Run again(path);
  Step(what, [&] { again.recovery.Recover(); });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int lines = argc > 1 ? QByteArray(argv[1]).toInt() : 200'000;
  const int length = argc > 2 ? QByteArray(argv[2]).toInt() : 50;
  const QString text = Lines(lines, length);
  std::printf("a text of %.1f MB in %d lines, in a box\n", static_cast<double>(text.size()) / 1e6, lines);
  BenchBox(text);
  std::printf("in the cumulative box\n");
  BenchCumulative(text);
  std::printf("after a crash\n");
  BenchRecovery("that text", 1, text);
  BenchRecovery("10,000 copies of 100 characters", 10'000, Lines(2, 50));
  BenchRecovery("100,000 copies of a word", 100'000, QStringLiteral("word"));
  return g_missed ? 1 : 0;
}

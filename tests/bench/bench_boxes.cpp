/// bench_boxes: how long working in large texts takes. A box of 1 MB RTF is enlarged, all twelve of 1 MB are shown in
/// one text, and keys are typed at the end and at the start of a cumulative text of 10 MB; each until the window is
/// painted. Run a release build with QT_QPA_PLATFORM=offscreen, or on a display.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <QApplication>
#include <QTest>

#include "app/main_window_stage.h"
#include "bench/cpu_clock.h"

using namespace snipdeck;

namespace {

constexpr int kMegabyte = 1'000'000;
constexpr int kRounds = 5;
constexpr int kKeys = 40;

QByteArray Rtf(int bytes) {
  QByteArray rtf = "{\\rtf1\\ansi ";
  for (int i = 0; rtf.size() < bytes; ++i) {
    rtf += "Paragraph " + QByteArray::number(i) +
           ": the quick brown {\\b fox} jumps over the {\\i lazy} dog, again and again, until the line is long "
           "enough to wrap in a box of ordinary width.\\par ";
  }
  return rtf + "}";
}

/// Until the window shows what `work` did.
double Measure(QWidget& window, const std::function<void()>& work) {
  const double begin = CpuMilliseconds();
  work();
  window.repaint();
  QCoreApplication::sendPostedEvents();
  window.repaint();
  return CpuMilliseconds() - begin;
}

void Print(const char* what, double mark, std::vector<double> milliseconds) {
  std::sort(milliseconds.begin(), milliseconds.end());
  std::printf("%-44s median %7.1f ms, longest %7.1f ms (mark %.0f)\n", what, milliseconds[milliseconds.size() / 2],
              milliseconds.back(), mark);
  std::fflush(stdout);
}

/// What the program does while nobody asks it for anything.
void Settle() {
  QTest::qWait(3000);
}

void MeasureEnlarging(MainWindowStage& stage) {
  std::vector<double> opened, closed;
  for (int i = 0; i < kRounds; ++i) {
    stage.window.Boxes().FocusedBox = static_cast<std::int16_t>(i + 1);
    opened.push_back(Measure(stage.window, [&] { stage.window.mnuViewBoxLarge_Click(); }));
    Settle();
    closed.push_back(Measure(stage.window, [&] { stage.window.mnuViewBoxLarge_Click(); }));
    Settle();
  }
  Print("1 MB box into the large view", 150, opened);
  Print("  and back to the boxes", 150, closed);
}

void MeasureAllInOne(MainWindowStage& stage) {
  std::vector<double> shown;
  for (int i = 0; i < kRounds; ++i) {
    shown.push_back(Measure(stage.window, [&] { stage.window.mnuAllInOne_Click(); }));
    Settle();
    stage.window.mnuViewBoxLarge_Click();
    Settle();
  }
  Print("twelve boxes of 1 MB in one text", 1500, shown);
}

void MeasureTyping(MainWindowStage& stage, const char* what, QTextCursor::MoveOperation where) {
  RichTextControl& cumulative = stage.window.Boxes().TXTextControl2();
  cumulative.moveCursor(where);
  Settle();
  std::vector<double> keys;
  for (int i = 0; i < kKeys; ++i)
    keys.push_back(Measure(stage.window, [&] { QTest::keyClick(&cumulative, static_cast<char>('a' + i % 26)); }));
  Print(what, 50, keys);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  MainWindowStage stage;
  stage.window.resize(1280, 800);
  BoxSet& boxes = stage.window.Boxes();
  const RichText text = RichText::FromRtf(Rtf(kMegabyte));
  for (int n = 1; n <= kBoxCount; ++n) boxes.Box(n).SetSelRichText(text);
  for (int i = 0; i < 10; ++i) boxes.TXTextControl2().AppendRichText(text);
  Settle();
  MeasureEnlarging(stage);
  MeasureAllInOne(stage);
  const double begin = CpuMilliseconds();
  stage.window.mnuCumulative_Click();
  stage.window.repaint();
  std::printf("cumulative text of 10 MB shown: %.1f ms\n", CpuMilliseconds() - begin);
  MeasureTyping(stage, "a key at the end of 10 MB", QTextCursor::End);
  MeasureTyping(stage, "a key at the start of 10 MB", QTextCursor::Start);
  return 0;
}

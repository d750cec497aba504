/// bench_layout [PARAGRAPHS]: how long one layout pass of the main window takes with twelve full boxes, and how long
/// until the texts are placed anew and the window is painted. Run it with QT_QPA_PLATFORM=offscreen, or on a display.

#include <algorithm>
#include <cstdio>
#include <vector>

#include <QApplication>

#include "app/main_window_stage.h"
#include "bench/cpu_clock.h"

using namespace snipdeck;

namespace {

constexpr int kPasses = 200;

RichText FullBox(int paragraphs) {
  QByteArray rtf = "{\\rtf1\\ansi ";
  for (int i = 0; i < paragraphs; ++i) {
    rtf += "Paragraph " + QByteArray::number(i) +
           ": the quick brown {\\b fox} jumps over the {\\i lazy} dog, again and again, until the line is long "
           "enough to wrap in a box of ordinary width.\\par ";
  }
  return RichText::FromRtf(rtf + "}");
}

void Print(const char* what, std::vector<double> milliseconds) {
  std::sort(milliseconds.begin(), milliseconds.end());
  std::printf("%-28s median %6.3f ms, 95 %% %6.3f ms, longest %6.3f ms\n", what, milliseconds[milliseconds.size() / 2],
              milliseconds[milliseconds.size() * 95 / 100], milliseconds.back());
}

void Measure(const char* what, const std::function<void(int)>& change) {
  std::vector<double> passes, wholes;
  for (int i = 0; i < kPasses; ++i) {
    const double begin = CpuMilliseconds();
    change(i);
    passes.push_back(CpuMilliseconds() - begin);
    QCoreApplication::processEvents();
    wholes.push_back(CpuMilliseconds() - begin);
  }
  Print(what, passes);
  Print("  with texts placed, painted", wholes);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int paragraphs = argc > 1 ? QByteArray(argv[1]).toInt() : 500;
  MainWindowStage stage;
  const RichText text = FullBox(paragraphs);
  for (int n = 1; n <= kBoxCount; ++n) stage.window.Boxes().Box(n).SetSelRichText(text);
  stage.window.resize(1280, 800);
  QCoreApplication::processEvents();
  std::printf("12 boxes of %d paragraphs, %lld characters each\n", paragraphs,
              static_cast<long long>(text.PlainText().size()));
  Measure("resize", [&stage](int i) { stage.window.resize(1280 + i % 40, 800 + i % 20); });
  Measure("sidebar shown or hidden", [&stage](int) { stage.window.mnuView_SideBar_Click(); });
  return 0;
}

/// bench_editor [FILE.rtf]: how long the text editor takes to open a document, and to answer while it is worked in; without
/// a file it makes one of 10 MB. Run it with QT_QPA_PLATFORM=offscreen. In processor time, so that other programs at work
/// disturb little. Exit status 1 where a mark is missed.

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

#include <QApplication>
#include <QScrollBar>

#include "bench/mixed_prose.h"
#include "editor/editor_stage.h"
#include "platform/qt/page_view/page_view.h"

using namespace snipdeck;

namespace {

constexpr double kOpenMark = 1500;  // milliseconds
constexpr double kKeyMark = 50;
constexpr int kKeys = 200;
bool g_missed = false;

double Milliseconds(const std::function<void()>& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

void Tell(const char* what, double milliseconds, double mark) {
  g_missed |= milliseconds > mark;
  std::printf("  %-46s %8.1f ms%s\n", what, milliseconds, milliseconds > mark ? "  MISSED" : "");
  std::fflush(stdout);
}

/// Runs the event loop until it has nothing to do for a while; the longest turn.
double LongestTurn() {
  double longest = 0;
  for (int idle = 0; idle < 60;) {
    const double turn = Milliseconds([] { QCoreApplication::processEvents(); });
    longest = std::max(longest, turn);
    idle = turn < 0.3 ? idle + 1 : 0;
    QThread::msleep(turn < 0.3 ? 25 : 0);
  }
  return longest;
}

void Paint(EditorStage& stage) {
  const auto* const pages = stage.Text().findChild<PageView*>();
  (pages ? pages->viewport() : stage.Text().viewport())->repaint();
}

/// From the key to the painted text and the bars that follow it. Now and then a pause, as people make them.
void Type(EditorStage& stage, const char* where) {
  std::vector<double> times;
  double pauses = 0;
  for (int i = 0; i < kKeys; ++i) {
    times.push_back(Milliseconds([&] {
      i % 20 == 19 ? QTest::keyClick(&stage.Text(), Qt::Key_Return)
                   : QTest::keyClick(&stage.Text(), i % 7 == 6 ? ' ' : 'e');
      Paint(stage);
      QCoreApplication::processEvents();
    }));
    if (i % 50 == 49) pauses = std::max(pauses, LongestTurn());
  }
  std::sort(times.begin(), times.end());
  std::printf("  %s: a key takes %.1f ms in the middle\n", where, times[times.size() / 2]);
  Tell("    the slowest of 200 keys", times.back(), kKeyMark);
  Tell("    the longest turn while nobody types", pauses, kKeyMark);
}

void Work(EditorStage& stage, const char* start, const char* middle) {
  const int length = stage.Text().document()->characterCount();
  stage.Text().SetSelStart(100);
  LongestTurn();
  Type(stage, start);
  stage.Text().SetSelStart(length / 2);
  LongestTurn();
  Type(stage, middle);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);  // nothing moves while nobody types
  EditorStage stage;
  const QString path = argc > 1 ? QString::fromLocal8Bit(argv[1]) : stage.Write(QStringLiteral("long.rtf"), MixedProse(10'000'000));
  stage.window.resize(1000, 800);
  std::printf("a document of %.1f MB, in processor time\n", static_cast<double>(QFile(path).size()) / 1e6);
  Tell("to the first painted lines", Milliseconds([&] {
         stage.Open(OpenMode::File, path);
         Paint(stage);
       }), kOpenMark);
  std::printf("  %d characters\n", stage.Text().document()->characterCount());
  Tell("the longest turn afterwards", LongestTurn(), kKeyMark);
  Work(stage, "at the start", "in the middle");
  const double toPages = Milliseconds([&] {
    stage.window.mnuView_PageView_Click();
    Paint(stage);
  });
  std::printf("  to page view, with the caret in the middle     %8.1f ms\n", toPages);
  Tell("the longest turn afterwards", LongestTurn(), kKeyMark);
  Work(stage, "at the start, in page view", "in the middle, in page view");
  std::printf("  %d pages\n", stage.Text().PageCount());
  stage.Document().Save();
  return g_missed ? 1 : 0;
}

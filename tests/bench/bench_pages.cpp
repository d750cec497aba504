// How much processor time page view takes: bench_pages [PAGES] [PICTURE.png], with QT_QPA_PLATFORM=offscreen.

#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "platform/qt/page_view/page_view.h"
#include "platform/qt/rich_text_control.h"

using namespace snipdeck;

namespace {

QString Prose(int pages) {
  const QString sentence = QStringLiteral("What was copied yesterday is looked for today, and found where it was left. ");
  const QString paragraph = sentence.repeated(6).trimmed() + u'\n';
  constexpr int kParagraphsPerPage = 9;
  return paragraph.repeated(pages * kParagraphsPerPage);
}

// Of this process alone: on a machine with other work the clock on the wall would measure that, too.
class ProcessorClock {
 public:
  void start() { m_start = std::clock(); }
  double Milliseconds() const { return static_cast<double>(std::clock() - m_start) * 1000 / CLOCKS_PER_SEC; }

 private:
  std::clock_t m_start = 0;
};

// Processor time from the key to the painted text.
void Type(RichTextControl& control, const char* where, int keys, bool breaksLines) {
  std::vector<double> times;
  for (int i = 0; i < keys; ++i) {
    ProcessorClock clock;
    clock.start();
    if (breaksLines && i % 10 == 9) QTest::keyClick(&control, Qt::Key_Return);
    else QTest::keyClick(&control, i % 7 == 6 ? ' ' : 'e');
    control.findChild<PageView*>()->viewport()->repaint();
    QCoreApplication::processEvents();
    times.push_back(clock.Milliseconds());
  }
  std::sort(times.begin(), times.end());
  std::printf("a key %-28s median %6.1f ms   99th percentile %6.1f ms   worst %6.1f ms\n", where,
              times[times.size() / 2], times[times.size() * 99 / 100], times.back());
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const int pages = argc > 1 ? std::max(1, std::atoi(argv[1])) : 200;
  RichTextControl control;
  control.resize(1000, 800);
  control.show();
  control.SetText(Prose(pages));
  control.setFocus();
  QTest::qWait(500);
  for (int i = 0; i < 3; ++i) {
    ProcessorClock clock;
    clock.start();
    control.SetViewMode(2);
    control.findChild<PageView*>()->viewport()->repaint();
    const double there = clock.Milliseconds();
    std::printf("%d characters, %d pages: to page view %.0f ms", control.document()->characterCount(),
                control.PageCount(), there);
    clock.start();
    control.SetViewMode(0);
    control.viewport()->repaint();
    std::printf(", back %.0f ms\n", clock.Milliseconds());
  }
  control.SetViewMode(2);
  control.SetSelStart(200);
  Type(control, "on page 1", 200, false);
  Type(control, "on page 1, with new lines", 200, true);
  if (argc > 2) control.grab().save(QString::fromLocal8Bit(argv[2]));
  ProcessorClock clock;
  clock.start();
  QScrollBar& scroll = *control.findChild<PageView*>()->verticalScrollBar();
  for (int i = 0; i < 100; ++i) {
    scroll.setValue(scroll.maximum() * i / 100);
    control.findChild<PageView*>()->viewport()->repaint();
  }
  std::printf("100 places shown: %.1f ms each\n", clock.Milliseconds() / 100);
}

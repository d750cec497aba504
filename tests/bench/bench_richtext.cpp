// Speed and memory of the rich-text engine, in processor time, so that other programs at work disturb little.
// bench_richtext [--rtf FILE]: with a file name, only writes the text that is measured, for other programs to read.

#include <cstdio>
#include <ctime>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>

#include "mixed_prose.h"
#include "richtext/rich_text.h"
#include "richtext/rtf/rtf_reader.h"
#include "richtext/rtf/rtf_writer.h"
#include "richtext/safe_document.h"

using namespace snipdeck;

namespace {

constexpr int kMegabyte = 1000 * 1000;

/// Processor milliseconds; the best of three runs.
double Milliseconds(const std::function<void()>& work, int runs = 3) {
  double best = 1e9;
  for (int i = 0; i < runs; ++i) {
    const std::clock_t start = std::clock();
    work();
    best = std::min(best, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}

long PeakKilobytes() {
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

void Parse(const QByteArray& rtf) {
  SafeDocument document;
  ReadRtf(rtf, document, ReadFor::Box);
}

void MeasureReadAndWrite(const QByteArray& rtf) {
  std::printf("read  %5.1f MB: %6.0f ms\n", rtf.size() / 1e6, Milliseconds([&] { Parse(rtf); }));
  SafeDocument document;
  ReadRtf(rtf, document, ReadFor::Box);
  QByteArray written;
  std::printf("write %5.1f MB: %6.0f ms\n", rtf.size() / 1e6, Milliseconds([&] { written = WriteRtf(document); }));
  std::printf("      written   %6.1f MB\n", written.size() / 1e6);
}

/// One copy goes into a box and into the cumulative text, and is kept.
void MeasureCapture(const QByteArray& rtf) {
  const double parse = Milliseconds([&] { Parse(rtf); });
  const double capture = Milliseconds([&] {
    const RichText text = RichText::FromRtf(rtf);
    SafeDocument box, cumulative;  // without undo, as the boxes are for a capture
    for (QTextDocument* document : {&box, &cumulative}) {
      QTextCursor cursor(document);
      text.InsertAt(cursor);
    }
  });
  const double ratio = capture / parse;
  std::printf("capture into two texts: %.0f ms, %.2f times the parse (mark: 1.5 or less)%s\n", capture, ratio,
              ratio <= 1.5 ? "" : "  MISSED");
}

/// In a process of its own, so that nothing measured before counts.
void MeasureMemory(const QByteArray& rtf) {
  std::fflush(stdout);
  if (const pid_t child = fork(); child != 0) {
    waitpid(child, nullptr, 0);
    return;
  }
  const long before = PeakKilobytes();
  Parse(rtf);
  std::printf("memory: %.1f times the file\n", 1024.0 * static_cast<double>(PeakKilobytes() - before) / rtf.size());
  std::fflush(stdout);
  _exit(0);
}

void MeasureGrowth() {
  for (const int megabytes : {1, 10, 100}) {
    const QByteArray rtf = MixedProse(qsizetype(megabytes) * kMegabyte);
    const double milliseconds = Milliseconds([&] { Parse(rtf); }, 1);
    std::printf("growth: %3d MB in %6.0f ms, %5.1f ms a MB\n", megabytes, milliseconds, milliseconds / megabytes);
  }
}

void MeasurePathological() {
  const auto measure = [](const char* what, const QByteArray& rtf) {
    std::printf("%-32s %5.1f MB: %6.0f ms\n", what, rtf.size() / 1e6, Milliseconds([&] { Parse(rtf); }, 1));
  };
  const int million = 1000 * 1000;
  measure("a million groups, nested", "{\\rtf1 " + QByteArray(million, '{') + 'x' + QByteArray(million, '}') + '}');
  measure("a million groups, side by side", "{\\rtf1 " + QByteArray("{x}").repeated(million) + '}');
  measure("a million control words", "{\\rtf1 " + QByteArray("\\b\\b0 ").repeated(million / 2) + "x}");
  measure("one paragraph of 10 MB", "{\\rtf1 " + QByteArray(10 * million, 'x') + '}');
  measure(
      "a table of 100,000 rows",
      "{\\rtf1 " + QByteArray("\\trowd\\cellx1000\\cellx2000\\intbl a\\cell b\\cell\\row\n").repeated(100000) + '}');
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QByteArray rtf = MixedProse(10 * kMegabyte);
  if (argc == 3 && QByteArrayView(argv[1]) == "--rtf") {
    QFile file(QFile::decodeName(argv[2]));
    return file.open(QIODevice::WriteOnly) && file.write(rtf) == rtf.size() ? 0 : 1;
  }
  MeasureMemory(rtf);
  MeasureReadAndWrite(rtf);
  MeasureCapture(rtf);
  MeasurePathological();
  MeasureGrowth();
  return 0;
}

// What was read from any RTF, written and read again, must be the same text.

#include <cstdio>

#include <QGuiApplication>

#include "richtext/rich_text.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const snipdeck::RichText first = snipdeck::RichText::FromRtf(bytes);
  const snipdeck::RichText second = snipdeck::RichText::FromRtf(first.Rtf());
  if (first.PlainText() == second.PlainText()) return 0;
  std::fprintf(stderr, "written:\n%s\n", first.Rtf().constData());
  abort();
}

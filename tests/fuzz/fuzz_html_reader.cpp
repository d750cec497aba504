// Any bytes taken for HTML must become a document, and what is written of it must be readable.

#include <QGuiApplication>

#include "richtext/html/html_writer.h"
#include "richtext/rich_text.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const snipdeck::RichText text = snipdeck::RichText::FromHtml(bytes);
  if (text.PlainText().contains(QChar(0))) abort();
  snipdeck::WriteHtml(text.Document());
  return 0;
}

// Any bytes must become a document, within bounds, and the document must hold no character that it may not.

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>

#include "richtext/rtf/rtf_reader.h"
#include "richtext/safe_document.h"

namespace {

void CheckCharacters(const QTextDocument& document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (const QChar c : block.text()) {
      if (c.unicode() == 0 || (c.unicode() < 0x20 && c != u'\t')) abort();
    }
  }
}

void Read(QByteArrayView bytes, snipdeck::ReadFor purpose) {
  snipdeck::SafeDocument document;
  snipdeck::ReadRtf(bytes, document, purpose);
  CheckCharacters(document);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  Read(bytes, snipdeck::ReadFor::Box);
  Read(bytes, snipdeck::ReadFor::Document);
  return 0;
}

// Any bytes must decode to text that a document may hold.

#include <algorithm>

#include <QCoreApplication>

#include "richtext/text/text_decoder.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QString text = snipdeck::CleanText(snipdeck::DecodeText(bytes));
  const bool isClean = std::all_of(text.cbegin(), text.cend(), [](QChar character) {
    return character.unicode() >= 0x20 || character == u'\t' || character == u'\n';
  });
  if (!isClean || snipdeck::CleanText(text) != text) abort();
  return 0;
}

#include "richtext/text/text_decoder.h"

#include <QStringDecoder>

#include "richtext/text/code_page_1252.h"

namespace snipdeck {
namespace {

QString Decode(QByteArrayView bytes, const char* codec) {
  // The mark was cut off already, and a second one is a character.
  QStringDecoder decoder(codec, QStringConverter::Flag::ConvertInitialBom);
  return decoder.isValid() ? QString(decoder(bytes)) : QString();
}

/// UTF-16 without a mark: text of western languages has a zero in nearly every second byte, and files in no other
/// encoding hold zeros at all.
const char* GuessUtf16(QByteArrayView bytes) {
  const qsizetype looked = std::min<qsizetype>(bytes.size(), 4096) & ~qsizetype(1);
  int zeros[2] = {0, 0};
  for (qsizetype i = 0; i < looked; ++i) zeros[i & 1] += bytes[i] == 0;
  if (looked < 4 || zeros[0] + zeros[1] < looked / 4) return nullptr;
  if (zeros[0] == 0) return "UTF-16LE";
  return zeros[1] == 0 ? "UTF-16BE" : nullptr;
}

bool IsForbidden(char16_t character) {
  if (character < 0x20) return character != u'\t' && character != u'\n';
  return character == 0xFFFC || character >= 0xFFFE || (character >= 0xFDD0 && character <= 0xFDEF);
}

}  // namespace

ByteOrderMark FindByteOrderMark(QByteArrayView bytes) {
  if (bytes.startsWith("\xEF\xBB\xBF")) return {"UTF-8", 3};
  if (bytes.startsWith(QByteArrayView("\xFF\xFE\0\0", 4))) return {"UTF-32LE", 4};
  if (bytes.startsWith(QByteArrayView("\0\0\xFE\xFF", 4))) return {"UTF-32BE", 4};
  if (bytes.startsWith("\xFF\xFE")) return {"UTF-16LE", 2};
  if (bytes.startsWith("\xFE\xFF")) return {"UTF-16BE", 2};
  return {};
}

bool IsUtf8(QByteArrayView bytes) {
  return bytes.isValidUtf8();
}

QString DecodeText(QByteArrayView bytes) {
  if (const ByteOrderMark mark = FindByteOrderMark(bytes); mark.size)
    return Decode(bytes.sliced(mark.size), mark.codec);
  if (const char* codec = GuessUtf16(bytes)) return Decode(bytes, codec);
  if (IsUtf8(bytes)) return QString::fromUtf8(bytes);
  QStringDecoder locale(QStringConverter::System);
  const QString text = locale(bytes);
  return locale.hasError() ? DecodeWindows1252(bytes) : text;
}

QString DecodeWindows1252(QByteArrayView bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code >= 0x80 && code < 0xA0 && kCodePage1252[code - 0x80]) character = QChar(kCodePage1252[code - 0x80]);
  }
  return text;
}

QString CleanText(const QString& text) {
  QString clean;
  clean.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar character = text[i];
    const QChar next = i + 1 < text.size() ? text[i + 1] : QChar();
    if (character == u'\r' || character == QChar::ParagraphSeparator || character == QChar(0x85)) {
      if (character != u'\r' || next != u'\n') clean += u'\n';
    } else if (character.isHighSurrogate() && next.isLowSurrogate()) {
      clean.append(character).append(next);
      ++i;
    } else if (!character.isSurrogate() && !IsForbidden(character.unicode())) {
      clean += character;
    }
  }
  return clean;
}

}  // namespace snipdeck

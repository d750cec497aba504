#include "richtext/text/text_decoder.h"

#include <QStringDecoder>

#include "richtext/text/code_page_1252.h"
#include "richtext/text/code_pages.h"
#include "richtext/text/encoding_guess.h"

namespace snipdeck {
namespace {

QString Decode(QByteArrayView bytes, const char* codec) {
  // The mark was cut off already, and a second one is a character.
  QStringDecoder decoder(codec, QStringConverter::Flag::ConvertInitialBom);
  return decoder.isValid() ? QString(decoder(bytes)) : QString();
}

/// Text with markup in the encoding that it names; null where it names none, or is not in that one.
QString DecodeDeclared(QByteArrayView bytes) {
  if (!bytes.trimmed().startsWith('<')) return {};
  QStringDecoder decoder(DeclaredCharset(bytes).constData(), QStringConverter::Flag::Stateless);
  if (!decoder.isValid()) return {};
  const QString text = decoder(bytes);
  return decoder.hasError() || text.contains(QChar::ReplacementCharacter) ? QString() : text;
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
  if (const char* codec = GuessWideEncoding(bytes)) return Decode(bytes, codec);
  if (IsUtf8(bytes) && !IsShiftedByEscapes(bytes)) return QString::fromUtf8(bytes);
  if (const QString declared = DecodeDeclared(bytes); !declared.isNull()) return declared;
  if (const int codePage = GuessCodePage(bytes)) return DecodeCodePage(codePage, bytes);
  QStringDecoder locale(QStringConverter::System, QStringConverter::Flag::Stateless);
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

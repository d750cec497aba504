#include "clipformats/format_content.h"

#include <algorithm>
#include <optional>

#include <QStringDecoder>

#include "richtext/text/text_decoder.h"

namespace snipdeck {

namespace {

constexpr ClipboardFormat kFormatOemText = 7;
constexpr qsizetype kBytesInHex = 4096;
constexpr qsizetype kBytesPerLine = 16;
constexpr qsizetype kLongestCharacter = 4;  // bytes in UTF-8

bool IsControl(QChar character) {
  const char16_t code = character.unicode();
  return code < 0x20 && code != u'\t' && code != u'\n' && code != u'\r' && code != u'\f' && code != u'\v';
}

/// Text up to its terminators; none if other control characters say that it is none.
std::optional<QString> AsText(QString text) {
  while (text.endsWith(QChar(u'\0'))) text.chop(1);
  if (std::any_of(text.begin(), text.end(), IsControl)) return {};
  return CleanText(text);
}

/// A character may have been cut in two.
QByteArrayView WithoutHalfCharacter(QByteArrayView bytes) {
  for (qsizetype cut = 0; cut < std::min(kLongestCharacter, bytes.size()); ++cut) {
    if (IsUtf8(bytes.chopped(cut))) return bytes.chopped(cut);
  }
  return bytes;
}

std::optional<QString> TextOf(ClipboardFormat format, QByteArrayView bytes, bool isWhole) {
  if (format == kFormatText || format == kFormatOemText) return AsText(DecodeWindows1252(bytes));
  if (format == kFormatUnicodeText) return AsText(QStringDecoder(QStringDecoder::Utf16LE)(bytes));
  const QByteArrayView characters = isWhole ? bytes : WithoutHalfCharacter(bytes);
  if (IsUtf8(characters)) {
    if (const auto text = AsText(QString::fromUtf8(characters))) return text;
  }
  const QString guessed = DecodeText(bytes);
  const bool tookTwoBytesEach = guessed.size() <= bytes.size() / 2;
  return tookTwoBytesEach ? AsText(guessed) : std::nullopt;
}

QString HexLine(QByteArrayView bytes, qsizetype offset) {
  QString numbers, characters;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    numbers += QStringLiteral("%1 ").arg(value, 2, 16, QLatin1Char('0'));
    characters += value >= 0x20 && value < 0x7F ? QLatin1Char(byte) : QLatin1Char('.');
  }
  return QStringLiteral("%1  %2 %3\n")
      .arg(offset, 8, 16, QLatin1Char('0'))
      .arg(numbers, -3 * static_cast<int>(kBytesPerLine))
      .arg(characters);
}

}  // namespace

FormatDescription DescribeBytes(ClipboardFormat format, QByteArrayView bytes, bool isWhole) {
  const QString more = QStringLiteral("...");
  if (const auto text = TextOf(format, bytes, isWhole)) return {isWhole ? *text : *text + more, true};
  QString lines;
  const qsizetype shown = std::min(bytes.size(), kBytesInHex);
  for (qsizetype at = 0; at < shown; at += kBytesPerLine) {
    lines += HexLine(bytes.sliced(at, std::min(kBytesPerLine, shown - at)), at);
  }
  return {isWhole && shown == bytes.size() ? lines : lines + more, false};
}

}  // namespace snipdeck

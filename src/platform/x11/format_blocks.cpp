#include "platform/x11/format_blocks.h"

#include <algorithm>
#include <array>

#include <QBuffer>
#include <QImageReader>
#include <QUrl>
#include <QtEndian>

#include "richtext/text/code_page_1252.h"
#include "richtext/text/text_decoder.h"

namespace snipdeck {

namespace {

constexpr qsizetype kDropHeaderSize = 20;
constexpr qsizetype kWideFlagAt = 16;
constexpr qsizetype kBmpHeaderSize = 14;
constexpr quint32 kDibHeaderSize = 40;
constexpr qint64 kMaxPixels = 64'000'000;
constexpr char16_t kFirstHighControl = 0x80;
constexpr char16_t kFirstLatin = 0xA0;

QString WithWindowsLineEnds(const QString& text) {
  QString lines = text;
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return lines.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

QString WithPlainLineEnds(QString text) {
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QByteArray Utf16Of(const QString& text) {
  QByteArray bytes(text.size() * qsizetype{sizeof(char16_t)}, Qt::Uninitialized);
  qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
  return bytes;
}

QString TextOfUtf16(QByteArrayView bytes) {
  QString text(bytes.size() / qsizetype{sizeof(char16_t)}, Qt::Uninitialized);
  qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
  return text;
}

quint32 NumberAt(QByteArrayView block, qsizetype offset) {
  return offset + 4 <= block.size() ? qFromLittleEndian<quint32>(block.data() + offset) : 0;
}

void AppendNumber(QByteArray& bytes, quint32 number) {
  std::array<char, sizeof number> raw{};
  qToLittleEndian(number, raw.data());
  bytes.append(raw.data(), raw.size());
}

/// Bytes of the palette between the header and the pixels.
quint32 PaletteSize(QByteArrayView dib) {
  const int bitCount = static_cast<int>(NumberAt(dib, 12) >> 16);
  const quint32 colours = NumberAt(dib, 32);
  if (colours > 256) return 0;
  if (colours > 0) return colours * 4;
  return bitCount > 0 && bitCount <= 8 ? 4u << bitCount : 0;
}

}  // namespace

int CodeIn1252(char16_t character) {
  if (character < kFirstHighControl || (character >= kFirstLatin && character <= 0xFF)) return character;
  const auto* found = std::find(kCodePage1252.begin(), kCodePage1252.end(), character);
  if (found != kCodePage1252.end() && *found != 0) {
    return kFirstHighControl + static_cast<int>(found - kCodePage1252.begin());
  }
  const bool isUnassigned = character < kFirstLatin && kCodePage1252[character - kFirstHighControl] == 0;
  return isUnassigned ? character : '?';
}

QByteArray UnicodeTextBlock(const QString& text) {
  return Utf16Of(WithWindowsLineEnds(text)) + QByteArray(2, '\0');
}

QByteArray CodePageTextBlock(const QString& text) {
  QByteArray bytes;
  for (const QChar character : WithWindowsLineEnds(text))
    bytes.append(static_cast<char>(CodeIn1252(character.unicode())));
  return bytes + '\0';
}

QString TextOfUnicodeBlock(QByteArrayView block) {
  const QString text = TextOfUtf16(block);
  const qsizetype end = text.indexOf(QChar(u'\0'));
  return WithPlainLineEnds(end < 0 ? text : text.left(end));
}

QString TextOfCodePageBlock(QByteArrayView block) {
  const qsizetype end = block.indexOf('\0');
  return WithPlainLineEnds(DecodeWindows1252(end < 0 ? block : block.first(end)));
}

QByteArray DropFilesBlock(const QStringList& paths) {
  QByteArray block;
  AppendNumber(block, static_cast<quint32>(kDropHeaderSize));
  block.append(kWideFlagAt - block.size(), '\0');
  AppendNumber(block, 1);
  for (const QString& path : paths) block.append(Utf16Of(path) + QByteArray(2, '\0'));
  return block + QByteArray(2, '\0');
}

QStringList NamesOfDropFiles(QByteArrayView block) {
  const qsizetype start = NumberAt(block, 0);
  if (start < kDropHeaderSize || start > block.size()) return {};
  const bool isWide = NumberAt(block, kWideFlagAt) != 0;
  const QByteArrayView list = block.sliced(start);
  const QString text = isWide ? TextOfUtf16(list) : DecodeWindows1252(list);
  QStringList names;
  for (const QString& name : text.split(QChar(u'\0'))) {
    if (name.isEmpty()) break;
    names.append(name);
  }
  return names;
}

QByteArray UriListOf(const QStringList& paths) {
  QByteArray list;
  for (const QString& path : paths) list += QUrl::fromLocalFile(path).toEncoded() + "\r\n";
  return list;
}

QByteArray DibBlock(const QImage& picture) {
  QByteArray bmp;
  QBuffer buffer(&bmp);
  buffer.open(QIODevice::WriteOnly);
  if (picture.isNull() || !picture.save(&buffer, "BMP")) return {};
  return bmp.remove(0, kBmpHeaderSize);
}

QByteArray BmpOfDib(QByteArrayView block) {
  const quint32 headerSize = NumberAt(block, 0);
  if (headerSize < kDibHeaderSize || headerSize > static_cast<quint64>(block.size())) return {};
  QByteArray bmp("BM");
  AppendNumber(bmp, static_cast<quint32>(block.size() + kBmpHeaderSize));
  AppendNumber(bmp, 0);
  AppendNumber(bmp, static_cast<quint32>(kBmpHeaderSize) + headerSize + PaletteSize(block));
  return bmp + block.toByteArray();
}

QByteArray PictureKind(const QByteArray& target) {
  static constexpr struct {
    const char* target;
    const char* kind;
  } kinds[] = {{"image/png", "png"},   {"image/jpeg", "jpeg"}, {"image/bmp", "bmp"},   {"image/x-bmp", "bmp"},
               {"image/tiff", "tiff"}, {"image/gif", "gif"},   {"image/webp", "webp"}, {"image/x-icon", "ico"}};
  const auto* found =
      std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& kind) { return target == kind.target; });
  return found == std::end(kinds) ? QByteArray() : QByteArray(found->kind);
}

QImage DecodePicture(const QByteArray& target, const QByteArray& bytes) {
  const QByteArray kind = PictureKind(target);
  if (kind.isEmpty()) return {};
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, kind);
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  // Kinds that do not tell their size beforehand are held by Qt's own limit.
  if (size.isValid() && qint64{size.width()} * size.height() > kMaxPixels) return {};
  return reader.read();
}

}  // namespace snipdeck

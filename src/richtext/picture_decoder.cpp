#include "richtext/picture_decoder.h"

#include <optional>

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace snipdeck {
namespace {

constexpr qsizetype kBitmapFileHeader = 14;
constexpr quint32 kInfoHeader = 40;

quint32 Long(const QByteArray& data, qsizetype at) {
  return qFromLittleEndian<quint32>(data.constData() + at);
}
quint16 Short(const QByteArray& data, qsizetype at) {
  return qFromLittleEndian<quint16>(data.constData() + at);
}

QImage ReadImage(const QByteArray& data, const char* format, qint64 maxPixels) {
  QBuffer buffer;
  buffer.setData(data);
  if (!buffer.open(QIODevice::ReadOnly)) return {};
  QImageReader reader(&buffer, format);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (!size.isValid() || qint64(size.width()) * size.height() > maxPixels) return {};
  return reader.read();
}

// A bitmap without the header that its file would have.
QImage ReadDib(const QByteArray& dib, qint64 maxPixels) {
  if (dib.size() < qsizetype(kInfoHeader)) return {};
  const quint32 header = Long(dib, 0);
  if (header < 12 || header > quint32(dib.size())) return {};
  const quint16 bits = header == 12 ? Short(dib, 10) : Short(dib, 14);
  quint32 colours = header >= kInfoHeader ? Long(dib, 32) : 0;
  if (colours == 0 && bits <= 8) colours = 1u << bits;
  colours = std::min(colours, 256u);
  const quint32 masks = header == kInfoHeader && Long(dib, 16) == 3 ? 12 : 0;
  const quint32 offset = quint32(kBitmapFileHeader) + header + masks + colours * (header == 12 ? 3 : 4);
  QByteArray file("BM");
  const auto append = [&file](quint32 value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    file.append(bytes, 4);
  };
  append(quint32(kBitmapFileHeader + dib.size()));
  append(0);
  append(offset);
  return ReadImage(file + dib, "bmp", maxPixels);
}

// A bitmap of a device: lines of two-byte words from the top, without colours of its own.
QImage ReadDeviceBitmap(const RtfPictureInfo& info, const QByteArray& data, qint64 maxPixels) {
  const int line = info.bytesPerLine > 0 ? info.bytesPerLine : (info.width * info.bitsPerPixel + 15) / 16 * 2;
  const bool fits = info.width > 0 && info.height > 0 && qint64(info.width) * info.height <= maxPixels &&
                    qint64(line) * info.height <= data.size() &&
                    qint64(info.width) * info.bitsPerPixel <= qint64(line) * 8;
  if (!fits) return {};
  QImage::Format format = QImage::Format_Invalid;
  if (info.bitsPerPixel == 1) format = QImage::Format_Mono;
  if (info.bitsPerPixel == 24) format = QImage::Format_BGR888;
  if (info.bitsPerPixel == 32) format = QImage::Format_RGB32;
  if (format == QImage::Format_Invalid) return {};
  QImage image(info.width, info.height, format);
  if (image.isNull()) return {};
  if (format == QImage::Format_Mono) image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
  const qsizetype bytes = std::min<qsizetype>(line, image.bytesPerLine());
  for (int y = 0; y < info.height; ++y)
    memcpy(image.scanLine(y), data.constData() + qsizetype(y) * line, size_t(bytes));
  return image;
}

// Records of a metafile that draw a bitmap, with the offset of the bitmap in their parameters (in words).
std::optional<qsizetype> BitmapOffset(quint16 record) {
  switch (record) {
    case 0x0F43:
      return 11;  // Stretched, with use of the colours
    case 0x0B41:
      return 10;  // Stretched
    case 0x0940:
      return 8;  // As it is
    case 0x0D33:
      return 9;  // To the device
    default:
      return std::nullopt;
  }
}

// What word processors make of a pasted picture is often a metafile around one bitmap.
QImage ReadMetafileBitmap(const QByteArray& data, qint64 maxPixels) {
  constexpr qsizetype kHeader = 18;
  qsizetype at = data.size() >= 4 && Long(data, 0) == 0x9AC6CDD7u ? 22 : 0;
  if (data.size() < at + kHeader || Short(data, at) > 2 || Short(data, at + 2) != 9) return {};
  at += kHeader;
  while (at + 6 <= data.size()) {
    const qsizetype size = qsizetype(Long(data, at)) * 2;
    if (size < 6 || size > data.size() - at) return {};
    if (const auto offset = BitmapOffset(Short(data, at + 4))) {
      const qsizetype skip = 6 + *offset * 2;
      if (size > skip) {
        QImage image = ReadDib(data.mid(at + skip, size - skip), maxPixels);
        if (!image.isNull()) return image;
      }
    }
    at += size;
  }
  return {};
}

}  // namespace

QImage DecodePicture(const RtfPictureInfo& info, const QByteArray& data, qint64 maxPixels) {
  using Type = RtfPictureInfo::Type;
  // What the data is counts more than what the stream calls it.
  if (data.startsWith("\x89PNG")) return ReadImage(data, "png", maxPixels);
  if (data.startsWith("\xFF\xD8\xFF")) return ReadImage(data, "jpg", maxPixels);
  if (data.startsWith("GIF8")) return ReadImage(data, "gif", maxPixels);
  switch (info.type) {
    case Type::Dib:
      return data.startsWith("BM") ? ReadImage(data, "bmp", maxPixels) : ReadDib(data, maxPixels);
    case Type::Bitmap:
      return ReadDeviceBitmap(info, data, maxPixels);
    case Type::Metafile:
      return ReadMetafileBitmap(data, maxPixels);
    default:
      return {};
  }
}

}  // namespace snipdeck

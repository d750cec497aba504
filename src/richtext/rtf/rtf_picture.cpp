#include "richtext/rtf/rtf_picture.h"

#include <QCryptographicHash>

#include "platform/units.h"
#include "richtext/picture_decoder.h"
#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxPictureBytes = 128 * 1024 * 1024;
constexpr int kMaxPixels = 20000;
constexpr double kPixelsPerHundredthMillimetre = 96.0 / 2540.0;
constexpr QSize kUnknownSize(32, 32);

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

QImage Placeholder() {
  QImage image(2, 2, QImage::Format_RGB32);
  image.fill(QColor(0xDD, 0xDD, 0xDD));
  return image;
}

bool SetSize(RtfPictureInfo& info, std::string_view word, int value) {
  const int size = std::clamp(value, 0, 1'000'000);
  if (word == "picw")
    info.width = size;
  else if (word == "pich")
    info.height = size;
  else if (word == "picwgoal")
    info.goalWidth = size;
  else if (word == "pichgoal")
    info.goalHeight = size;
  else if (word == "picscalex")
    info.scaleX = std::clamp(value, 1, 10000);
  else if (word == "picscaley")
    info.scaleY = std::clamp(value, 1, 10000);
  else if (word == "piccropl")
    info.cropLeft = size;
  else if (word == "piccropt")
    info.cropTop = size;
  else if (word == "piccropr")
    info.cropRight = size;
  else if (word == "piccropb")
    info.cropBottom = size;
  else if (word == "wbmbitspixel")
    info.bitsPerPixel = std::clamp(value, 1, 32);
  else if (word == "wbmwidthbytes")
    info.bytesPerLine = std::clamp(value, 0, 1'000'000);
  else
    return false;
  return true;
}

bool SetType(RtfPictureInfo& info, std::string_view word) {
  using Type = RtfPictureInfo::Type;
  if (word == "pngblip")
    info.type = Type::Png;
  else if (word == "jpegblip")
    info.type = Type::Jpeg;
  else if (word == "dibitmap")
    info.type = Type::Dib;
  else if (word == "wbitmap")
    info.type = Type::Bitmap;
  else if (word == "wmetafile" || word == "emfblip" || word == "pmmetafile")
    info.type = Type::Metafile;
  else if (word == "macpict")
    info.type = Type::MacPicture;
  else
    return false;
  return true;
}

QImage Cropped(const QImage& image, const RtfPictureInfo& info) {
  if (image.isNull()) return image;  // nothing to measure the cut by
  const QRect part = info.ShownPart(image.size());
  return part.size() == image.size() ? image : image.copy(part);
}

}  // namespace

QRect RtfPictureInfo::ShownPart(QSize pixels) const {
  const auto cut = [](int twips, int goal, int side) {
    const double whole = goal > 0 ? goal : side * kTwipsPerPixel;
    return qRound(std::min(twips / whole, 1.0) * side);
  };
  const QRect part = QRect(QPoint(), pixels)
                         .adjusted(cut(cropLeft, goalWidth, pixels.width()), cut(cropTop, goalHeight, pixels.height()),
                                   -cut(cropRight, goalWidth, pixels.width()),
                                   -cut(cropBottom, goalHeight, pixels.height()));
  return part.isEmpty() ? QRect(QPoint(), pixels) : part;
}

QSizeF RtfPictureInfo::ShownSize(QSize natural) const {
  const bool metafile = type == Type::Metafile;
  const auto side = [&](int goal, int cut, int raw, int pixels, int scale) {
    double shown = (cut < goal ? goal - cut : goal) / kTwipsPerPixel;
    if (goal == 0) shown = metafile ? raw * kPixelsPerHundredthMillimetre : pixels > 0 ? pixels : raw;
    return std::clamp(shown * scale / 100.0, 1.0, double(kMaxPixels));
  };
  return {side(goalWidth, cropLeft + cropRight, width, natural.width(), scaleX),
          side(goalHeight, cropTop + cropBottom, height, natural.height(), scaleY)};
}

QTextImageFormat RtfPictures::Add(const RtfPictureInfo& info, const QByteArray& data) {
  QImage image = Cropped(Decode(info, data), info);
  const bool isSizeKnown = !image.isNull() || info.width > 0 || info.goalWidth > 0;
  // A scale says nothing where there is nothing to be scaled.
  const QSizeF shown = isSizeKnown ? info.ShownSize(image.size()) : QSizeF(kUnknownSize);
  if (image.isNull()) {
    m_warnings.Add(QStringLiteral("picture shown as a grey field"));
    image = Placeholder();
  }
  const QByteArrayView pixels(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
  const QByteArray hash = QCryptographicHash::hash(pixels.toByteArray(), QCryptographicHash::Sha1);
  const QString name = QStringLiteral("picture-%1").arg(QString::fromLatin1(hash.toHex().left(24)));
  const auto same = [&](const FlowPicture& resource) { return resource.name == name; };
  if (std::none_of(m_pictures.begin(), m_pictures.end(), same)) m_pictures.push_back({name, image});
  QTextImageFormat format;
  format.setName(name);
  format.setWidth(shown.width());
  format.setHeight(shown.height());
  return format;
}

QImage RtfPictures::Decode(const RtfPictureInfo& info, const QByteArray& data) {
  QImage image = DecodePicture(info, data, m_pixelsLeft);
  m_pixelsLeft -= qint64(image.width()) * image.height();
  return image;
}

bool RtfPicture::Raw(QByteArrayView bytes) {
  if (m_data.size() > kMaxPictureBytes) return true;
  for (const char c : bytes) {
    const int digit = HexDigit(c);
    if (digit < 0) continue;
    if (m_halfByte < 0) {
      m_halfByte = digit;
    } else {
      m_data.append(static_cast<char>(m_halfByte * 16 + digit));
      m_halfByte = -1;
    }
  }
  return true;
}

void RtfPicture::Binary(QByteArrayView bytes) {
  if (m_data.size() + bytes.size() <= kMaxPictureBytes) m_data.append(bytes);
}

bool RtfPicture::Word(std::string_view word, int value, bool) {
  return SetSize(m_info, word, value) || SetType(m_info, word);
}

void RtfPicture::Close() {
  RtfBody* body = m_parser.State().body;
  const bool empty = m_data.isEmpty() && m_info.goalWidth == 0 && m_info.width == 0;
  if (!body || empty) return;
  QTextImageFormat format = m_parser.Pictures().Add(m_info, m_data);
  body->AddImage(format);
}

}  // namespace snipdeck

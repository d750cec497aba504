#include "clipformats/scaled_picture.h"

#include <algorithm>
#include <mutex>
#include <optional>

#include <QImageReader>

namespace snipdeck {

namespace {

constexpr qint64 kFewPixels = 8'000'000;
constexpr qint64 kMostPixels = 128 << 20;
constexpr int kUsualDepth = 32;  // what Qt counts at least for a pixel, whatever it really takes

/// While it lives, one picture may be read whole that is larger than Qt's limit, which holds for the pictures in texts.
class LargeReading {
 public:
  /// `depth` is in bits a pixel.
  explicit LargeReading(int depth) : m_one(Turn()), m_usual(QImageReader::allocationLimit()) {
    QImageReader::setAllocationLimit(static_cast<int>(kMostPixels * depth / 8 >> 20));
  }
  ~LargeReading() { QImageReader::setAllocationLimit(m_usual); }
  Q_DISABLE_COPY_MOVE(LargeReading)

 private:
  static std::mutex& Turn() {
    static std::mutex turn;
    return turn;
  }

  std::scoped_lock<std::mutex> m_one;
  int m_usual;
};

qint64 PixelsOf(QSize size) {
  return qint64{size.width()} * size.height();
}

/// A long thin picture keeps at least one pixel of its breadth.
QSize ScaledDown(QSize size, QSize most) {
  if (size.width() <= most.width() && size.height() <= most.height()) return size;
  return size.scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/// Whether the reader makes it small while it reads. PNG does so with colours of eight bits only.
bool ScalesWhileReading(QImageReader& reader, const QByteArray& kind) {
  if (kind == "jpeg" || kind == "webp") return true;
  const QImage::Format format = reader.imageFormat();
  return kind == "png" && (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32);
}

/// Bits that a pixel takes in memory, as Qt counts them.
int DepthOf(QImageReader& reader) {
  return std::max(kUsualDepth, QImage(1, 1, reader.imageFormat()).depth());
}

/// Scaling smoothly takes four bytes a pixel, so a large picture is thinned out first in what it has.
QImage Shrunk(const QImage& image, QSize size) {
  if (image.size() == size) return image;
  const QSize twice = size * 2;
  const bool isFarLarger = PixelsOf(image.size()) > kFewPixels && twice.width() < image.width();
  const QImage thinned = isFarLarger ? image.scaled(twice, Qt::IgnoreAspectRatio, Qt::FastTransformation) : image;
  return thinned.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

ScaledPicture ReadScaled(QIODevice& bytes, const QByteArray& kind, QSize most) {
  QImageReader reader(&bytes, kind);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const bool isTurned = reader.transformation() & QImageIOHandler::TransformationRotate90;
  const QSize stored = reader.size();
  const QSize room = isTurned ? most.transposed() : most;
  std::optional<LargeReading> large;
  if (stored.isValid() && ScalesWhileReading(reader, kind)) {
    reader.setScaledSize(ScaledDown(stored, room));
  } else {
    large.emplace(DepthOf(reader));
  }
  ScaledPicture picture{{}, isTurned ? stored.transposed() : stored};
  // Qt would refuse it, too, but complain aloud.
  if (large && PixelsOf(stored) > kMostPixels) return picture;
  picture.image = reader.read();
  if (picture.image.isNull()) return picture;
  if (!picture.fullSize.isValid()) picture.fullSize = picture.image.size();
  picture.image = Shrunk(picture.image, ScaledDown(picture.image.size(), most));
  return picture;
}

}  // namespace snipdeck

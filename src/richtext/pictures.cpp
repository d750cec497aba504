#include "richtext/pictures.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QTextDocument>
#include <QTextFormat>
#include <QUrl>
#include <QVariant>

namespace snipdeck {
namespace {

constexpr char kPngSignature[] = "\x89PNG\r\n\x1a\n";

QVariant Resource(const QTextDocument& document, const QTextImageFormat& format) {
  return document.resource(QTextDocument::ImageResource, QUrl(format.name()));
}

QImage ImageOf(const QVariant& resource) {
  if (resource.userType() == QMetaType::QByteArray) return QImage::fromData(resource.toByteArray());
  if (resource.userType() == QMetaType::QPixmap) return resource.value<QPixmap>().toImage();
  return resource.value<QImage>();
}

}  // namespace

QByteArray PngOfPicture(const QTextDocument& document, const QTextImageFormat& format) {
  const QVariant resource = Resource(document, format);
  if (resource.userType() == QMetaType::QByteArray && resource.toByteArray().startsWith(kPngSignature)) {
    return resource.toByteArray();
  }
  const QImage image = ImageOf(resource);
  if (image.isNull()) return QByteArray();
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  image.save(&png, "PNG");
  return png.data();
}

QSizeF ShownSize(const QTextDocument& document, const QTextImageFormat& format) {
  const bool hasWidth = format.width() > 0, hasHeight = format.height() > 0;
  if (hasWidth && hasHeight) return QSizeF(format.width(), format.height());
  const QSizeF own = ImageOf(Resource(document, format)).size();
  if (own.isEmpty()) return QSizeF(std::max(format.width(), 0.0), std::max(format.height(), 0.0));
  if (hasWidth) return QSizeF(format.width(), own.height() * format.width() / own.width());
  if (hasHeight) return QSizeF(own.width() * format.height() / own.height(), format.height());
  return own;
}

}  // namespace snipdeck

#include "richtext/html/html_pictures.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>

namespace snipdeck {
namespace {

constexpr qint64 kMostPixels = 40'000'000;

bool IsShowable(const QByteArray& bytes) {
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  const QSize size = reader.size();
  return reader.canRead() && size.isValid() && qint64(size.width()) * size.height() <= kMostPixels;
}

}  // namespace

QString TakePicture(const QString& source, QHash<QString, QByteArray>& pictures) {
  const QByteArray bytes = DataUrlContent(source.trimmed());
  if (bytes.isEmpty()) return {};
  const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
  const QString name = QLatin1String("picture-") + QLatin1String(hash);
  if (!pictures.contains(name)) {
    if (!IsShowable(bytes)) return {};
    pictures.insert(name, bytes);
  }
  return name;
}

QByteArray DataUrlContent(const QString& url) {
  const qsizetype comma = url.indexOf(u',');
  if (!url.startsWith(QLatin1String("data:"), Qt::CaseInsensitive) || comma < 0) return QByteArray();
  const QByteArray payload = QByteArray::fromPercentEncoding(QStringView(url).mid(comma + 1).toUtf8());
  const bool base64 = QStringView(url).left(comma).endsWith(QLatin1String(";base64"), Qt::CaseInsensitive);
  return base64 ? QByteArray::fromBase64(payload) : payload;
}

}  // namespace snipdeck

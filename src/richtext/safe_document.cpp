#include "richtext/safe_document.h"

#include <QImage>
#include <QUrl>
#include <QVariant>

namespace snipdeck {

SafeDocument::SafeDocument(QObject* parent) : QTextDocument(parent) {
  setUndoRedoEnabled(false);
}

QVariant SafeDocument::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource || name.scheme() != QLatin1String("data")) return QVariant();
  return QImage::fromData(DataUrlContent(name.toString()));
}

QByteArray DataUrlContent(const QString& url) {
  const qsizetype comma = url.indexOf(QLatin1Char(','));
  if (!url.startsWith(QLatin1String("data:"), Qt::CaseInsensitive) || comma < 0) return QByteArray();
  const QByteArray payload = QByteArray::fromPercentEncoding(QStringView(url).mid(comma + 1).toUtf8());
  const bool base64 = QStringView(url).left(comma).endsWith(QLatin1String(";base64"), Qt::CaseInsensitive);
  return base64 ? QByteArray::fromBase64(payload) : payload;
}

}  // namespace snipdeck

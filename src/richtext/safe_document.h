#pragma once

#include <QTextDocument>

namespace snipdeck {

/// A document that takes pictures from data: addresses and from its own resources alone: whatever names its text holds,
/// neither the network nor the disk is touched.
class SafeDocument : public QTextDocument {
 public:
  explicit SafeDocument(QObject* parent = nullptr);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
};

/// The bytes of a data: address; null when it is none or cannot be decoded.
QByteArray DataUrlContent(const QString& url);

}  // namespace snipdeck

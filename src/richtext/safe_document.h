#pragma once

#include <QTextDocument>

namespace snipdeck {

/// A document that shows the pictures it was given and loads none: whatever names its text holds, neither the network
/// nor the disk is touched. It has no undo history.
class SafeDocument : public QTextDocument {
 public:
  explicit SafeDocument(QObject* parent = nullptr);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace snipdeck

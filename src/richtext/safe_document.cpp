#include "richtext/safe_document.h"

#include <QVariant>

namespace snipdeck {

SafeDocument::SafeDocument(QObject* parent) : QTextDocument(parent) {
  setUndoRedoEnabled(false);
}

QVariant SafeDocument::loadResource(int, const QUrl&) {
  return QVariant();
}

}  // namespace snipdeck

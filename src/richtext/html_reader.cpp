#include "richtext/html_reader.h"

#include <QTextDocument>

namespace snipdeck {

QStringList ReadHtml(QByteArrayView html, QTextDocument& document) {
  document.setHtml(QString::fromUtf8(html));
  return {};
}

}  // namespace snipdeck

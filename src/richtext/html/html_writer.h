#pragma once

#include <QByteArray>

class QTextDocument;

namespace snipdeck {

/// The characters [begin, end) of `document` as an HTML page in UTF-8 with its formats in style attributes; end -1
/// means to the end. Pictures are part of the page.
QByteArray WriteHtml(const QTextDocument& document, int begin = 0, int end = -1);

}  // namespace snipdeck

#pragma once

#include <QByteArray>

class QTextDocument;

namespace snipdeck {

/// The characters [begin, end) of `document` as RTF 1.9; end -1 means to the end. Never fails; memory is what the text
/// takes.
QByteArray WriteRtf(const QTextDocument& document, int begin = 0, int end = -1);

}  // namespace snipdeck

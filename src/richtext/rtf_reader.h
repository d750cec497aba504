#pragma once

#include <QByteArrayView>
#include <QStringList>

#include "richtext/rich_text.h"

class QTextDocument;

namespace snipdeck {

/// Reads RTF into `document`, which must be empty. Returns the warnings: what was dropped or repaired.
/// Numbers are clamped, nesting and sizes are limited; bytes that are no RTF at all leave the document empty.
QStringList ReadRtf(QByteArrayView rtf, QTextDocument& document, ReadFor purpose);

}  // namespace snipdeck

#pragma once

#include <QByteArrayView>
#include <QString>

#include "platform/clipboard_formats.h"

namespace snipdeck {

struct FormatDescription {
  QString words;
  /// False for the table of bytes, whose lines must not be broken.
  bool isText = false;
};

/// What the first bytes of a format look like to a person: the text, where they are text in UTF-8, UTF-16 or, for
/// formats 1 and 7, the system's code page; otherwise the bytes as numbers to base 16, 16 a line, with their characters
/// beside them. `isWhole` tells whether there are no further bytes.
FormatDescription DescribeBytes(ClipboardFormat format, QByteArrayView bytes, bool isWhole);

}  // namespace snipdeck

#pragma once

#include <QByteArray>
#include <QSizeF>

class QTextDocument;
class QTextImageFormat;

namespace snipdeck {

/// The picture behind `format` as PNG; empty when the document has none of that name.
QByteArray PngOfPicture(const QTextDocument& document, const QTextImageFormat& format);

/// The size at which the picture is shown, in pixels: what the format says, else the picture's own.
QSizeF ShownSize(const QTextDocument& document, const QTextImageFormat& format);

}  // namespace snipdeck

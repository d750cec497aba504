#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace snipdeck {

/// Whether the stream is HTML that a mail program wrapped in RTF.
bool WrapsHtml(QByteArrayView rtf);

/// The HTML that such a stream wraps, as UTF-8 with its mark at the beginning, whatever encoding the HTML names.
QByteArray UnwrapHtml(QByteArrayView rtf);

}  // namespace snipdeck

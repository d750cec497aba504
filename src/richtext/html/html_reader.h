#pragma once

#include <QByteArrayView>
#include <QStringList>

class QTextDocument;

namespace snipdeck {

/// Reads HTML into `document`, which must be empty and must not load anything by itself (SafeDocument). The bytes may
/// be a whole page, a fragment, or a clipboard payload with its header of offsets. Returns the warnings.
QStringList ReadHtml(QByteArrayView html, QTextDocument& document);

}  // namespace snipdeck

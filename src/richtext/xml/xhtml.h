#pragma once

#include <QByteArray>

#include "platform/result.h"
#include "richtext/rich_text.h"

class QTextDocument;

namespace snipdeck {

/// The whole text as well-formed XHTML. Each style stands in a style attribute, with a class of the sheet that
/// WriteStyleSheet makes of the same text beside it. The page's size and margins are in its head.
QByteArray WriteXhtml(const QTextDocument& document);

/// The styles of the text as classes, and its page.
QByteArray WriteStyleSheet(const QTextDocument& document);

/// Reads XHTML; other XML shows as it stands. Malformed for what is not well-formed.
Result<RichText> ReadXhtml(const QByteArray& bytes);

}  // namespace snipdeck

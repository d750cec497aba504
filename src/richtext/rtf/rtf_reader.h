#pragma once

#include <functional>

#include <QByteArrayView>
#include <QStringList>

#include "richtext/flow_text.h"
#include "richtext/rich_text.h"

class QTextDocument;

namespace snipdeck {

/// What RTF bytes hold.
struct RtfContents {
  FlowText text;
  QByteArray html;       ///< In place of `text` where the bytes wrap a page of HTML.
  QStringList warnings;  ///< What was dropped or repaired.
};
/// Numbers are clamped, nesting and sizes are limited; bytes that are no RTF at all give no text. `progress` is told how
/// far it is; once it has said false, the contents are of no use.
RtfContents ReadRtf(QByteArrayView rtf, ReadFor purpose, const std::function<bool(double part)>& progress = {});

/// Reads RTF into `document`, which must be empty. Returns the warnings: what was dropped or repaired.
QStringList ReadRtf(QByteArrayView rtf, QTextDocument& document, ReadFor purpose);

}  // namespace snipdeck

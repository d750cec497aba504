#pragma once

#include <functional>

#include <QStringList>

#include "platform/result.h"
#include "richtext/flow_text.h"

namespace snipdeck {

/// The text of a PDF file, a paragraph a line; each page begins a page. The page's size is that of the first one.
/// Refused for a file that needs a password, Malformed for what is no PDF. `progress` as in ReadDocx.
Result<FlowText> ReadPdf(const QByteArray& bytes, QStringList& warnings,
                         const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

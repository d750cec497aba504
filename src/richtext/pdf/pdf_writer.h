#pragma once

#include <functional>

#include "platform/result.h"

class QTextDocument;

namespace snipdeck {

/// The whole text as a PDF file on pages of its own size, with text that can be selected and links that can be followed.
/// `progress` as in WriteDocx.
Result<QByteArray> WritePdf(const QTextDocument& document, const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

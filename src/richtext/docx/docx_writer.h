#pragma once

#include <functional>

#include "platform/result.h"

class QTextDocument;

namespace snipdeck {

/// The whole text as a DOCX file, with its page where it says one. `progress` may be empty; where it returns false,
/// writing ends with Failure::Kind::Refused.
Result<QByteArray> WriteDocx(const QTextDocument& document, const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

#pragma once

#include <functional>

#include "platform/result.h"

class QTextDocument;

namespace snipdeck {

/// The text as a workbook of one sheet: paragraphs as rows, tables as cells. Text that is nothing but a number in a table
/// becomes one. Pictures are left out. `progress` as in WriteDocx.
Result<QByteArray> WriteXlsx(const QTextDocument& document, const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

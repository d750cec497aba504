#pragma once

#include <functional>

#include <QStringList>

#include "platform/result.h"
#include "richtext/flow_text.h"

namespace snipdeck {

/// The sheets of an XLSX file that are not hidden, each as a table of what its cells show, under its name where there are
/// several. Sheets with more cells than a document can hold go on as lines with tabs. `progress` as in ReadDocx.
Result<FlowText> ReadXlsx(const QByteArray& bytes, QStringList& warnings,
                          const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

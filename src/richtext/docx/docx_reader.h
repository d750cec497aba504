#pragma once

#include <functional>

#include <QStringList>

#include "platform/result.h"
#include "richtext/flow_text.h"

namespace snipdeck {

/// Reads the bytes of a DOCX file: its text with formats, lists, tables, pictures and links, notes behind the text, and
/// the page of its first section. `warnings` gets what was left out. `progress` may be empty; where it returns false,
/// reading ends with Failure::Kind::Refused.
Result<FlowText> ReadDocx(const QByteArray& bytes, QStringList& warnings,
                          const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck

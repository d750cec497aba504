#pragma once

#include <optional>

#include <QString>

#include "platform/clipboard_formats.h"

namespace snipdeck {

/// The fixed name of a standard format (1 to 17), which may be empty; none for any other number.
std::optional<QString> StandardFormatName(ClipboardFormat format);

}  // namespace snipdeck

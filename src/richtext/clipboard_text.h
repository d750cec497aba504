#pragma once

#include <optional>

#include "platform/clipboard.h"
#include "richtext/rich_text.h"

namespace snipdeck {

/// What the clipboard holds as formatted text; nothing where its plain text is to be taken. HTML of pictures alone, which
/// are not fetched, shows nothing, so the text beside it counts.
std::optional<RichText> FormattedText(const Clipboard& clipboard);
std::optional<RichText> FormattedText(const RichTextPayload& payload);

}  // namespace snipdeck

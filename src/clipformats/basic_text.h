#pragma once

#include "richtext/rich_text.h"

namespace snipdeck {

/// The text with its characters and paragraphs alone: fonts, colours, alignment, indents. The rows of tables become
/// lines with tabs, list items begin with their label, and pictures, links and frames go.
RichText BasicText(const RichText& text);

}  // namespace snipdeck

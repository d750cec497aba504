#pragma once

namespace snipdeck {

class RichTextControl;

void RunTableAttributesDialog(RichTextControl& control);

}  // namespace snipdeck

#pragma once

namespace snipdeck {

class RichTextControl;

void RunPageSetupDialog(RichTextControl& control);

}  // namespace snipdeck

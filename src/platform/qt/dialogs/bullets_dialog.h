#pragma once

namespace snipdeck {

class RichTextControl;

void RunBulletsDialog(RichTextControl& control);

}  // namespace snipdeck

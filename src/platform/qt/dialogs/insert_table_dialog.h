#pragma once

namespace snipdeck {

class RichTextControl;

void RunInsertTableDialog(RichTextControl& control);

}  // namespace snipdeck

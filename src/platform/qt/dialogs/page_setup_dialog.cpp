#include "platform/qt/dialogs/page_setup_dialog.h"

namespace snipdeck {

void RunPageSetupDialog(RichTextControl&) {}

}  // namespace snipdeck

#include "platform/qt/dialogs/bullets_dialog.h"

namespace snipdeck {

void RunBulletsDialog(RichTextControl&) {}

}  // namespace snipdeck

#include "platform/qt/dialogs/table_attributes_dialog.h"

namespace snipdeck {

void RunTableAttributesDialog(RichTextControl&) {}

}  // namespace snipdeck

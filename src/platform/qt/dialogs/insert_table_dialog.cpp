#include "platform/qt/dialogs/insert_table_dialog.h"

namespace snipdeck {

void RunInsertTableDialog(RichTextControl&) {}

}  // namespace snipdeck

#include "editor/control_errors.h"

#include "platform/message_box.h"

namespace snipdeck {

namespace {

/// In the control's descriptions of failures to write a file.
const QString kSaveFailed = QStringLiteral("1d09");

}  // namespace

void ShowControlError(const QString& description, MessageBox& messages) {
  const bool saving = description.contains(kSaveFailed);
  messages.Show({.text = saving ? QStringLiteral("Error saving file directly.\r\n\r\nPlease use \"Save as\" function.")
                                : QStringLiteral("Error executing command just now.\r\n\r\nTry again in a moment."),
                 .icon = MessageIcon::Exclamation});
}

}  // namespace snipdeck

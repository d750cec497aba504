#pragma once

#include "platform/message_box.h"

namespace snipdeck {

/// Tells the user, with a beep, that a text was put on the clipboard for them.
inline void ShowCopyNotice(MessageBox& messages) {
  messages.Beep();
  messages.ShowInformation(
      QStringLiteral("You can retrieve this text by pressing Ctrl-V or using the \"Paste\" option."));
}

}  // namespace snipdeck

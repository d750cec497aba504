#pragma once

#include "clipformats/clipboard_window.h"
#include "platform/clipboard.h"
#include "platform/clipboard_access.h"
#include "platform/clipboard_functions.h"
#include "platform/clipboard_writer.h"
#include "platform/file_dialogs.h"
#include "platform/message_box.h"
#include "platform/settings.h"

namespace snipdeck {

/// The outside world as the windows that show the clipboard see it. Everything outlives them.
struct ClipboardWindowServices {
  ClipboardAccess& access;
  ClipboardFunctions& functions;
  ClipboardWriter& writer;
  /// Where paste takes its text from.
  const Clipboard& pasteSource;
  MessageBox& messages;
  FileDialogs& dialogs;
  Settings& settings;
  KeepOnScreenStep keepOnScreen;
};

}  // namespace snipdeck

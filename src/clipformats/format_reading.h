#pragma once

#include "clipformats/custom_clipboard.h"

namespace snipdeck {

/// One format of the clipboard, and what came of reading it.
struct FormatReading {
  std::int32_t number = 0;
  QString name = {};
  bool isRead = false;
  /// Why there is nothing; empty if there is.
  QString failure = {};
  /// Milliseconds that reading took.
  qint64 duration = 0;
  /// Bytes of the whole block, and the first ones of them.
  qint64 size = 0;
  QByteArray head = {};
};

/// Reads the format, which waits for its owner as ClipboardFunctions says. Of its bytes only the first 32 KB are kept.
void ReadFormat(FormatReading& format, cCustomClipboard& clipboard, ClipboardFunctions& functions, WindowHandle window);

}  // namespace snipdeck

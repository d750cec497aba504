#include "clipformats/format_reading.h"

#include <algorithm>

#include <QElapsedTimer>

namespace snipdeck {

namespace {

constexpr qint64 kKeptBytes = 32 << 10;

}  // namespace

void ReadFormat(FormatReading& format, cCustomClipboard& clipboard, ClipboardFunctions& functions,
                WindowHandle window) {
  QElapsedTimer elapsed;
  elapsed.start();
  if (!clipboard.ClipboardOpen(window)) {
    format.failure = QStringLiteral("another window uses the clipboard");
    return;
  }
  const MemoryHandle block = clipboard.GetClipboardMemoryHandle(format.number);
  if (block == 0) format.failure = functions.LastFailure();
  if (block == 0 && format.failure.isEmpty()) format.failure = QStringLiteral("it is not there");
  if (block != 0) {
    format.size = static_cast<qint64>(functions.BlockSize(block));
    format.head = QByteArray(functions.LockBlock(block), std::min(format.size, kKeptBytes));
    functions.UnlockBlock(block);
  }
  clipboard.ClipboardClose();
  format.isRead = true;
  format.duration = elapsed.elapsed();
}

}  // namespace snipdeck

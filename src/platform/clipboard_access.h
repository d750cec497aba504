#pragma once

#include <QImage>
#include <QString>

#include "platform/clipboard.h"
#include "platform/clipboard_formats.h"
#include "platform/result.h"

namespace snipdeck {

/// Simple access to what the clipboard holds at this moment; each call opens and closes it by itself. What another
/// program holds is read while it waits, bounded as ClipboardFunctions says, and a failure names the format. Contents
/// that their owner marks as secret are not there.
class ClipboardAccess {
 public:
  virtual ~ClipboardAccess() = default;

  /// Whether rich text, text (1 or 13), a bitmap (2 or 8) or a file list (15) is there; any other format gives false.
  virtual bool HasFormat(ClipboardFormat format) = 0;
  /// The rich text in the encoding in which its owner offers it.
  virtual Result<RichTextPayload> RichText() = 0;
  /// The plain text with its owner's line ends.
  virtual Result<QString> Text() = 0;
  /// The picture, of at most 64 million pixels.
  virtual Result<QImage> Picture() = 0;
};

}  // namespace snipdeck

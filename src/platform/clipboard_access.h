#pragma once

#include <QByteArray>
#include <QString>

#include "platform/clipboard.h"
#include "platform/clipboard_formats.h"
#include "platform/result.h"

namespace snipdeck {

/// A picture as its owner handed it over.
struct EncodedPicture {
  QByteArray bytes;
  /// The kind of the bytes: "png", "jpeg", ...
  QByteArray kind;
};

/// Simple access to what the clipboard holds at this moment; each call opens and closes it by itself. What another
/// program holds is read while the call waits, bounded as ClipboardFunctions says, and a failure names the format; events
/// are handled meanwhile, the user's are not. Contents that their owner marks as secret are not there.
class ClipboardAccess {
 public:
  virtual ~ClipboardAccess() = default;

  /// Whether rich text, text (1 or 13), a bitmap (2 or 8) or a file list (15) is there; any other format gives false.
  virtual bool HasFormat(ClipboardFormat format) = 0;
  /// The rich text in the encoding in which its owner offers it.
  virtual Result<RichTextPayload> RichText() = 0;
  /// The plain text with its owner's line ends.
  virtual Result<QString> Text() = 0;
  /// The picture, not looked into: it may be damaged, and of any size.
  virtual Result<EncodedPicture> Picture() = 0;
};

}  // namespace snipdeck

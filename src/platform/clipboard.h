#pragma once

#include "platform/clipboard_formats.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace snipdeck {

/// Rich text as its owner handed it over, in the encoding in which it came.
struct RichTextPayload {
  enum class Encoding { None, Rtf, Html };
  Encoding encoding = Encoding::None;
  QByteArray bytes;
};

/// What one copy put on the clipboard, read completely; later changes do not touch it.
struct ClipboardSnapshot {
  bool hasRichText = false;
  bool hasText = false;
  bool hasBitmap = false;
  bool hasFileList = false;
  RichTextPayload richText;
  QString text;
  /// Paths in the order of the owner's list.
  QStringList files;
};

/// Simple access to the clipboard: what is there, and its text. Every answer comes from the snapshot of the change that is
/// being handled, so none of them waits for another program.
class Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// True if the clipboard offers `format` (rich text, text, bitmap or file list; any other gives false).
  virtual bool HasFormat(ClipboardFormat format) const = 0;
  /// The rich text; encoding None when there is none.
  virtual RichTextPayload RichText() const = 0;
  /// The plain text; empty when there is none.
  virtual QString Text() const = 0;
  /// The paths of the file list; empty when there is none.
  virtual QStringList FileList() const = 0;
};

}  // namespace snipdeck

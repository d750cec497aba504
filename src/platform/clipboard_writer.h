#pragma once

#include <QByteArray>
#include <QString>

#include "platform/result.h"

namespace snipdeck {

/// One text in every form in which it is offered to the programs that paste it.
struct TextOffer {
  /// RTF; empty where the text is offered without formats.
  QByteArray rtf;
  /// HTML in UTF-8; empty where the text is offered without formats.
  QByteArray html;
  QString text;
};

/// The writing side of the system clipboard. No call waits for another program longer than it says.
class ClipboardWriter {
 public:
  virtual ~ClipboardWriter() = default;

  /// Leaves nothing on the clipboard, whoever put it there.
  virtual Outcome EmptyClipboard() = 0;
  /// Puts the text there in place of what was there; the watch tells of it like of any other change. A failure leaves
  /// the clipboard as it was.
  virtual Outcome PutRichText(const TextOffer& offer) = 0;
  /// Adds RTF to what is there: what its owner offers under other names stays, as far as it can be read within a
  /// second.
  virtual Outcome AddRtf(const QByteArray& rtf) = 0;
  /// Once, as the last step before the program ends: hands what this program has on the clipboard to whoever keeps it
  /// from then on, so that it can be pasted after the exit. Does nothing when another program copied last. Returns
  /// within one second; a failure means that the text is gone with the program.
  virtual Outcome HandOverAtExit() = 0;
};

}  // namespace snipdeck

#pragma once

#include "platform/clipboard_writer.h"

namespace snipdeck {

/// Writes the clipboard as Qt does on every system. What it puts there outlives the program where the desktop keeps a
/// clipboard of its own, as Windows does, or where a clipboard manager runs.
class QtClipboardWriter : public ClipboardWriter {
 public:
  Outcome EmptyClipboard() override;
  Outcome PutRichText(const TextOffer& offer) override;
  Outcome HandOverAtExit() override;
};

}  // namespace snipdeck

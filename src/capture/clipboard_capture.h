#pragma once

#include "capture/box_set.h"
#include "platform/clipboard.h"

namespace snipdeck {

/// Files what was copied: names its kind, and puts text into the next box of the ring and at the end of the cumulative
/// box.
class ClipboardCapture {
 public:
  /// `startWithCumulative` is the setting of that name, read at every change: 1 captures even while a box is enlarged.
  ClipboardCapture(BoxSet& boxes, const Clipboard& clipboard, const std::int16_t& startWithCumulative);

  /// Runs once for each change of the clipboard. Shows no message, whatever fails.
  void ProcessClipboard();
  /// Parts of it, for copies that come back after a crash: the first only puts the copy at the end of the cumulative
  /// text, staged as always; the second shows that the box `CurrentBox` has the latest copy.
  void AppendOnly();
  void ShowAsLatest();

 private:
  bool CaptureIsOff() const;
  void NameKind();
  void StageFileNames();
  void StageContents();
  void AdvanceRing();
  void AppendToCumulative();
  void FileIntoBox();

  BoxSet& m_boxes;
  const Clipboard& m_clipboard;
  const std::int16_t& m_startWithCumulative;
};

}  // namespace snipdeck

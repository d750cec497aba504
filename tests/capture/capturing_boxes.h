#pragma once

#include "capture/clipboard_capture.h"
#include "fakes/fake_clipboard.h"
#include "fakes/scripted_messages.h"

namespace snipdeck {

/// The boxes in a window that is not shown, and what files copies into them.
struct CapturingBoxes {
  QWidget window;
  ScriptedMessages messages;
  BoxSet& boxes = *new BoxSet(window, messages);
  FakeClipboard clipboard;
  std::int16_t startWithCumulative;
  ClipboardCapture capture{boxes, clipboard, startWithCumulative};

  explicit CapturingBoxes(std::int16_t startsWithCumulative = 1) : startWithCumulative(startsWithCumulative) {}
};

}  // namespace snipdeck

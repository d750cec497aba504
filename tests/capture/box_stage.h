#pragma once

#include <QTest>

#include "capture/box_interaction.h"
#include "capture/combined_views.h"
#include "fakes/fake_clipboard.h"
#include "fakes/scripted_messages.h"

namespace snipdeck {

/// The boxes in a window that is shown, with all that works on them; box 3 holds a text. What the boxes ask of the main
/// window is noted in `asked`.
struct BoxStage {
  QWidget window;
  ScriptedMessages messages;
  FakeClipboard clipboard;
  QString storageFolder = QStringLiteral("/home/user/snippets");
  QStringList asked;
  BoxSet& boxes = *new BoxSet(window, messages);
  BoxInteraction interaction{boxes, messages, storageFolder, Host()};
  CombinedViews views{boxes, messages};

  BoxStage() {
    boxes.SetPasteSource(clipboard);
    window.resize(800, 700);
    window.show();
    if (!QTest::qWaitForWindowActive(&window)) qFatal("the window does not become active");
    boxes.Box(3).SetSelRtf("{\\rtf1 some {\\b bold} text}");
  }

 private:
  BoxHost Host() {
    return {.switchFocus = [this] { asked << "switch focus"; },
            .showClipboard = [this] { asked << "clipboard"; },
            .nextSidebarWidth = [this] { asked << "sidebar"; },
            .placeLeft = [this](std::int16_t fill) { asked << QStringLiteral("left %1").arg(fill); },
            .placeRight = [this](std::int16_t fill) { asked << QStringLiteral("right %1").arg(fill); }};
  }
};

}  // namespace snipdeck

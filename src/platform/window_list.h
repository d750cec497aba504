#pragma once

#include <vector>

#include <QString>

#include "platform/window_handle.h"

namespace snipdeck {

/// One top-level window of any program.
struct TopLevelWindow {
  WindowHandle handle = 0;
  /// At most kMaxTitle characters; empty where the window has none.
  QString title;
  /// A minimised window is visible too.
  bool isVisible = false;
  bool hasParent = false;
  /// Another window owns this one, as a program's main window owns its dialogs.
  bool hasOwner = false;
  /// A palette or panel, which task bars leave out.
  bool isToolWindow = false;
  /// Wants its own place in task bars although another window owns it.
  bool isApplicationWindow = false;
};

/// The windows on the user's desktop.
class WindowList {
 public:
  static constexpr int kMaxTitle = 256;
  virtual ~WindowList() = default;

  /// All top-level windows in the platform's order, as they are at this moment; none where the platform keeps no list.
  virtual std::vector<TopLevelWindow> TopLevelWindows() const = 0;
  /// Brings a window to the foreground and gives it the keyboard; a window that is gone is left alone.
  virtual void BringToForeground(WindowHandle window) = 0;
};

}  // namespace snipdeck

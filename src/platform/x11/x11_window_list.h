#pragma once

#include "platform/window_list.h"

namespace snipdeck {

/// The windows that the X window manager keeps in its list. A transient window counts as owned, what keeps off task
/// bars as a tool window, and a transient window that calls itself a normal one as an application's window.
class X11WindowList : public WindowList {
 public:
  std::vector<TopLevelWindow> TopLevelWindows() const override;
  void BringToForeground(WindowHandle window) override;
};

}  // namespace snipdeck

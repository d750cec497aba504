#include "platform/x11/x11_window_list.h"

#include <algorithm>
#include <initializer_list>

#include "platform/x11/raise_window.h"
#include "platform/x11/x11_desktop.h"

namespace snipdeck {

namespace {

constexpr std::uint32_t kWithdrawn = 0;  // of WM_STATE

/// What a window manager and a window's own program say about the window.
class WindowFacts {
 public:
  WindowFacts(const X11Desktop& desktop, xcb_window_t window)
      : m_desktop(desktop),
        m_window(window),
        m_types(desktop.Values(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM)),
        m_states(desktop.Values(window, "_NET_WM_STATE", XCB_ATOM_ATOM)) {}

  TopLevelWindow Window() const {
    return {.handle = m_window,
            .title = Title(),
            .isVisible = IsVisible(),
            // The window manager lists no children.
            .hasParent = false,
            .hasOwner = HasOwner(),
            .isToolWindow = KeepsOffTaskBars(),
            .isApplicationWindow = IsCalledNormal() && !KeepsOffTaskBars()};
  }

 private:
  QString Title() const {
    QString title = m_desktop.Text(m_window, "_NET_WM_NAME");
    if (title.isEmpty()) title = m_desktop.Text(m_window, "WM_NAME");
    return title.left(WindowList::kMaxTitle);
  }
  bool IsVisible() const {
    const auto state = m_desktop.Values(m_window, "WM_STATE", m_desktop.Atom("WM_STATE"));
    return state.empty() || state.front() != kWithdrawn;
  }
  bool HasOwner() const {
    const auto owner = m_desktop.Values(m_window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW);
    // A window that is transient for the root window belongs to a group of windows.
    return !owner.empty() && owner.front() != XCB_WINDOW_NONE;
  }
  bool KeepsOffTaskBars() const {
    return HasOneOf(m_states, {"_NET_WM_STATE_SKIP_TASKBAR"}) ||
           HasOneOf(m_types, {"_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_TOOLBAR", "_NET_WM_WINDOW_TYPE_DOCK",
                              "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_SPLASH"});
  }
  bool IsCalledNormal() const { return HasOneOf(m_types, {"_NET_WM_WINDOW_TYPE_NORMAL"}); }
  bool HasOneOf(const std::vector<std::uint32_t>& atoms, std::initializer_list<const char*> names) const {
    return std::any_of(names.begin(), names.end(), [&](const char* name) {
      return std::find(atoms.begin(), atoms.end(), m_desktop.Atom(name)) != atoms.end();
    });
  }

  const X11Desktop& m_desktop;
  xcb_window_t m_window;
  std::vector<std::uint32_t> m_types;
  std::vector<std::uint32_t> m_states;
};

}  // namespace

std::vector<TopLevelWindow> X11WindowList::TopLevelWindows() const {
  const X11Desktop desktop;
  std::vector<TopLevelWindow> windows;
  for (const xcb_window_t window : desktop.Values(desktop.Root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW))
    windows.push_back(WindowFacts(desktop, window).Window());
  return windows;
}

void X11WindowList::BringToForeground(WindowHandle window) {
  RaiseWindow(qgetenv("DISPLAY"), static_cast<std::uint32_t>(window));
}

}  // namespace snipdeck

#include "navigation/window_titles.h"

namespace snipdeck {

namespace {

bool IsKept(const TopLevelWindow& window, WindowHandle ownMainWindow) {
  if (window.handle == ownMainWindow || !window.isVisible || window.hasParent || window.title.isEmpty()) return false;
  return window.hasOwner ? window.isApplicationWindow : !window.isToolWindow;
}

}  // namespace

int FillWindowList(const WindowList& windows, WindowHandle ownMainWindow, WindowTitles& titles) {
  titles = {};
  for (const TopLevelWindow& window : windows.TopLevelWindows()) {
    if (!IsKept(window, ownMainWindow)) continue;
    titles.lstWinHandles.append(QString::number(window.handle));
    titles.lstWinNames.append(window.title);
  }
  return static_cast<int>(titles.lstWinNames.size());
}

WindowHandle WindowTitled(const WindowTitles& titles, const QString& title) {
  const qsizetype index = titles.lstWinNames.indexOf(title);
  return index < 0 ? 0 : static_cast<WindowHandle>(titles.lstWinHandles[index].toULongLong());
}

}  // namespace snipdeck

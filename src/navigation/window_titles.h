#pragma once

#include <QStringList>

#include "platform/window_list.h"

namespace snipdeck {

/// The windows that a user would call a program's windows, as the last search found them. Entry i of one list belongs
/// to entry i of the other.
struct WindowTitles {
  QStringList lstWinNames;
  /// In decimal.
  QStringList lstWinHandles;
};

/// Fills the lists afresh and returns the number of titles. Left out are the program's own main window, hidden, child
/// and untitled windows, palettes, and what another window owns unless it stands for a program of its own.
int FillWindowList(const WindowList& windows, WindowHandle ownMainWindow, WindowTitles& titles);

/// The first window of exactly that title; 0 for none.
WindowHandle WindowTitled(const WindowTitles& titles, const QString& title);

}  // namespace snipdeck

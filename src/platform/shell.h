#pragma once

#include <functional>

#include <QString>

#include "platform/result.h"
#include "platform/window_handle.h"

namespace snipdeck {

/// The desktop that the program runs on. Every call returns at once: what was started runs on its own and is not
/// watched.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Starts the program at `program`, which may hold blanks and is never quoted; its window is shown normally and gets
  /// the keyboard. `argument` is one word of a command line, in double quotes where it holds a blank; empty for none.
  /// It reaches the program as it stands, without the quotes: nothing expands or interprets it. Fails where the
  /// platform cannot start that file.
  virtual Outcome StartProgram(const QString& program, const QString& argument) = 0;
  /// Opens the user's file manager on a folder. `owner` is the window that asks; 0 for none.
  virtual Outcome ExploreFolder(const QString& folder, WindowHandle owner) = 0;
  /// Shows the desktop's sheet with the properties of a file. Where the desktop has none, `otherwise` runs instead, now
  /// or later, and at most once.
  virtual void ShowProperties(const QString& path, WindowHandle owner, std::function<void()> otherwise) = 0;
  /// Minimises all windows so that the desktop shows, or brings them back. Fails where the desktop does not offer it.
  virtual Outcome ToggleDesktop() = 0;
};

}  // namespace snipdeck

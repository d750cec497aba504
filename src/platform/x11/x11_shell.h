#pragma once

#include <QObject>

#include "platform/shell.h"

namespace snipdeck {

/// The freedesktop.org desktop: programs are started directly, folders are shown by the file manager on the session bus
/// or else by xdg-open, and the window manager shows the desktop.
class X11Shell : public QObject, public Shell {
  Q_OBJECT

 public:
  Outcome StartProgram(const QString& program, const QString& argument) override;
  /// Failures of the file manager itself come too late to be told.
  Outcome ExploreFolder(const QString& folder, WindowHandle owner) override;
  void ShowProperties(const QString& path, WindowHandle owner, std::function<void()> otherwise) override;
  Outcome ToggleDesktop() override;
};

}  // namespace snipdeck

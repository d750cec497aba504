#pragma once

#include <functional>

#include "layout/fonts_and_colours.h"
#include "platform/screen.h"
#include "platform/window_geometry.h"

namespace snipdeck {

/// The command that lets the user pick a size for the main window.
class WindowSizeCommand {
 public:
  struct Host {
    QWidget& window;
    WindowGeometry& geometry;
    const Screen& screen;
    Settings& settings;
    FontsAndColours& fonts;
    /// Lays the window's controls out.
    std::function<void()> layOut;
  };

  /// What `host` refers to outlives this.
  explicit WindowSizeCommand(Host host) : m_host(std::move(host)) {}

  /// Asks with the dialog and sizes the window, whose title bar stays within reach.
  void Run();

 private:
  void Apply(int choice);

  Host m_host;
};

}  // namespace snipdeck

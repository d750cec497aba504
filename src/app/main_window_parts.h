#pragma once

#include <functional>

#include <QMainWindow>

#include "app/crash_recovery.h"
#include "app/settings_file.h"
#include "capture/combined_views.h"
#include "platform/change_watch.h"
#include "platform/clipboard_writer.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "platform/window_geometry.h"
#include "storage/box_storage.h"

namespace snipdeck {

/// The parts of the main window that take part in its start and its end. All of them outlive both.
struct MainWindowParts {
  QMainWindow& window;
  BoxSet& boxes;
  CombinedViews& views;
  Settings& settings;
  SettingsFile& settingsFile;
  BoxStorage& storage;
  CrashRecovery& recovery;
  WindowGeometry& geometry;
  const Screen& screen;
  ChangeWatch& watch;
  ClipboardWriter& clipboard;
  MessageBox& messages;
};

/// Steps of the start that belong to other parts of the window, which sets those that it has.
struct StartSteps {
  using Step = std::function<void()>;
  /// The button colour of the settings, on the window's buttons and labels.
  Step applyButtonColour = [] {};
  Step buildSidebar = [] {};
  /// At every activation.
  Step applyControlFonts = [] {};
  /// The file shown in the cumulative box, without asking.
  Step loadContentsFile = [] {};
};

}  // namespace snipdeck

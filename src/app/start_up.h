#pragma once

#include "app/main_window_parts.h"

namespace snipdeck {

/// Brings the main window up: what happens when it is loaded, and when it becomes the active window.
class StartUp {
 public:
  /// `folder` is the program's folder, `firstSettings` the settings file for users who have none.
  StartUp(const MainWindowParts& parts, const QString& folder, const QString& firstSettings);

  StartSteps& Steps() { return m_steps; }
  /// Once, before the window is shown.
  void Load();
  /// Each time the window becomes the active one. The first time, the clipboard is watched from here on by `onChange`,
  /// which the watch also tells what the clipboard holds already.
  void Activated(ChangeWatch::Handler onChange);

 private:
  void ReadSettings();
  void PlaceWindow();
  void ChooseStorageFolder();
  void ShowFirstView();

  MainWindowParts m_parts;
  QString m_folder;
  QString m_firstSettings;
  StartSteps m_steps;
  bool FirstShow = true;
};

/// Name of the settings file in the program's folder.
inline constexpr char kSettingsFileName[] = "QM_Snipdeck.ini";

}  // namespace snipdeck

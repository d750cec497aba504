#pragma once

#include "navigation/program_search.h"
#include "navigation/window_titles.h"
#include "platform/message_box.h"
#include "platform/settings.h"
#include "platform/shell.h"

namespace snipdeck {

/// The outside world as the starting of programs sees it.
struct ProgramServices {
  FileLookup& files;
  Shell& shell;
  WindowList& windows;
  MessageBox& messages;
};

/// Starts other programs: the suite's file manager and text tool, the user's browser, the desktop's file manager. Only
/// a program that is nowhere to be found is told to the user; every other failure is passed over.
class ExternalPrograms {
 public:
  /// `settings` is read at every call: the browser and the storage folder are the user's to change.
  ExternalPrograms(const ProgramServices& services, ProgramSearch search, const Settings& settings);

  /// The window that owns what is opened, and that is no other program's.
  void SetMainWindow(WindowHandle window) { m_mainWindow = window; }

  /// Starts `program`, looked for where it may lie. Without an argument a running copy, told by its window's title, is
  /// brought to the front instead of starting a second one.
  void LaunchProgram(const QString& program, QString argument);
  void StartMiniTrawler(const QString& folder);
  void StartJotter(const QString& argument = {});
  void StartBrowser();
  /// An empty `folder` becomes the current directory, for the caller too.
  void ExploreFolder(QString& folder, WindowHandle owner);
  void GotoDesktop();

  /// The main window's commands. They leave the current directory as they found it.
  void ShowStorageInTrawler();
  void ExploreStorage();
  /// The sidebar's: both on the current directory.
  void ShowCurrentInTrawler();
  void ExploreCurrent();

 private:
  bool RaiseRunningCopy(const QString& program);

  ProgramServices m_services;
  ProgramSearch m_search;
  const Settings& m_settings;
  WindowHandle m_mainWindow = 0;
  WindowTitles m_titles;
};

}  // namespace snipdeck

#pragma once

#include <QMainWindow>

#include "app/clipboard_commands.h"
#include "app/crash_recovery.h"
#include "app/editor_desk.h"
#include "app/file_commands.h"
#include "app/focus_switch.h"
#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/stored_box_set.h"
#include "app/top_row.h"
#include "app/undisturbed_work.h"
#include "capture/box_interaction.h"
#include "capture/box_set.h"
#include "capture/clipboard_capture.h"
#include "capture/combined_views.h"
#include "dialogs/frm_my_msg_box.h"
#include "dialogs/frm_saving.h"
#include "layout/fonts_and_colours.h"
#include "layout/window_size_command.h"
#include "navigation/external_programs.h"
#include "navigation/sidebar.h"
#include "platform/clipboard.h"
#include "platform/file_dialogs.h"
#include "platform/font_colour_dialogs.h"
#include "platform/print_dialog.h"
#include "platform/long_work.h"
#include "platform/qt/command_button.h"
#include "platform/qt/qt_window_geometry.h"

namespace snipdeck {

/// The outside world as the main window sees it. Everything outlives the window.
struct MainWindowServices {
  ChangeWatch& ctlClipboard1;
  const Clipboard& clipboard;
  ClipboardWriter& clipboardWriter;
  ClipboardAccess& clipboardAccess;
  ClipboardFunctions& clipboardFunctions;
  MessageBox& messages;
  const Screen& screen;
  FileLookup& files;
  Shell& shell;
  WindowList& windows;
  FileDialogs& fileDialogs;
  FontColourDialogs& fontColourDialogs;
  PrintDialog& printDialog;
  LongWork& longWork;
  /// The folder of the executable file.
  QString ownFolder;
  /// The program's folder, and the settings file for users who have none.
  QString folder;
  QString firstSettings;
};

/// The main window: it owns the controls and the classes that do the work; every event handler is one call into one of
/// them.
class frmSnipdeck : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmSnipdeck(const MainWindowServices& services);
  ~frmSnipdeck() override;

  BoxSet& Boxes() { return *m_boxes; }

  /// Once, before the window is shown.
  void Form_Load();
  void ctlClipboard1_Changed();
  void mnuAllInOne_Click();
  void mnuAppend_Click();
  void mnuButtonColour_Click();
  void mnuContrlFont_Click();
  void mnuClipStyles_Click();
  void mnuCopyOneBox_Click();
  void mnuCumulative_Click();
  void mnuEmpty_Click();
  void mnuExit_Click();
  void mnuExplorer_Click();
  void mnuFolder_Click();
  void mnuHelp_Click();
  void mnuNewTextFile_Click();
  void mnuIntoClipboard_Click();
  void mnuLoadBoxes_Click();
  void mnuSaveAs_Click();
  void mnuSaveText_Click();
  void mnuSaveTextBoxes_Click();
  void mnuScreenSize_Click();
  void mnuSettings_Click();
  void mnuShowAllTypes_Click();
  void mnuTopicalNotes_Click();
  void mnuTrawler_Click();
  void mnuViewBoxLarge_Click();
  void mnuViewSideBarWidth_Click();
  void mnuView_Jotter_Click();
  void mnuView_SideBar_Click();
  void cmdDesktop_Click();
  /// Rows of the sidebar that do something of their own.
  void BrowserRow_Click();
  void ExplorerRow_Click();
  void TrawlerRow_Click();
  /// The session may be about to end.
  void SessionEnding();
  /// The system ends the program: keeps what there is to keep, asks nothing.
  void EndForced();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ApplyControlFont();
  void PlaceFixedControls();
  void BuildSidebar();
  void RunSidebarRow(int row);
  void SetTabOrder();
  void Form_Activate();
  void Form_Resize();
  bool Form_QueryUnload();
  void KeepMinimumSize();
  MainWindowParts Parts();
  SidebarHost Host();
  BoxHost HostOfBoxes();
  ClipboardWindowServices ServicesOfClipboard();
  EditorServices ServicesOfEditor();

  MainWindowServices m_services;
  Settings m_settings;
  QWidget* m_client;
  TopRow m_topRow;
  BoxSet* m_boxes;
  Sidebar* m_sidebar;
  FocusSwitch m_focusSwitch;
  ExternalPrograms m_programs;
  ClipboardCapture m_capture;
  BoxInteraction m_interaction;
  CombinedViews m_views;
  ClipboardCommands m_clipboardWindows;
  SettingsFile m_settingsFile;
  UndisturbedWork m_longWork;
  StoredBoxSet m_storedBoxes;
  BoxStorage m_storage;
  FileCommands m_files;
  CrashRecovery m_recovery;
  QtWindowGeometry m_geometry;
  FontsAndColours m_looks;
  WindowSizeCommand m_windowSize;
  FileDetailsQuestion m_changedDocument;
  SavingWindow m_savingNotice;
  EditorDesk m_editor;
  StartUp m_startUp;
  ShutDown m_shutDown;
  bool m_sessionIsEnding = false;
};

}  // namespace snipdeck

#pragma once

#include "app/main_window_parts.h"

namespace snipdeck {

/// Brings the main window down: asks for what is not saved, keeps placement and settings, ends the watch, closes the
/// program's windows.
class ShutDown {
 public:
  explicit ShutDown(const MainWindowParts& parts) : m_parts(parts) {}

  /// The user wants to close. False when the user cancelled, or is still being asked by an earlier request; nothing has
  /// been written then.
  bool QueryUnload();
  /// The system wants the program to end: asks nothing. What the user would have been asked about is kept for the next
  /// start. Also while a question is open.
  void EndForced();
  /// The session may end soon: keeps everything that the end would keep, and ends nothing.
  void KeepForSessionEnd();

  bool HasEnded() const { return m_hasEnded; }

 private:
  void ShowMaximisedIfMinimised();
  bool AskAboutBoxes();
  bool AskAboutCumulative();
  void PutCumulativeOnClipboard();
  bool HoldsUnsaved() const;
  void TakePlacement();
  void Finish();
  void CloseOtherWindows();

  MainWindowParts m_parts;
  bool m_isAsking = false;
  bool m_hasEnded = false;
  /// The boxes that the user wanted to save could not all be written.
  bool m_saveFailed = false;
};

}  // namespace snipdeck

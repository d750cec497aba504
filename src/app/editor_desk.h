#pragma once

#include <memory>

#include "app/editor_recovery.h"
#include "editor/frm_rtf_htm.h"

namespace snipdeck {

/// The main window's commands that open the text editor, and what remains of its document after a crash. There is one
/// editor window, made at its first use.
class EditorDesk {
 public:
  /// `owner` is the window that the editor covers; `recoveryPath` the file that keeps a changed document.
  EditorDesk(const EditorServices& services, QWidget& owner, const QString& recoveryPath);

  /// Each returns when the editor has closed.
  void NewTextFile();
  void OpenTopicalNotes();

  /// Once, at the start: reads what a crash has left. The user is asked about it now and, until there was an answer,
  /// whenever the editor is opened.
  void TakeOverLost();
  /// False when the user has put the answer off.
  bool AskAboutLost();
  /// The same, at the first call only.
  void AskAtStart();

  /// Writes a changed document down; the session may end soon.
  void KeepForSessionEnd() { m_recovery.Flush(); }
  /// The same, and the editor closes without asking.
  void EndForced();

 private:
  frm_RTF_HTM& Window();
  void Show(OpenMode mode, const QString& path);

  EditorServices m_services;
  QWidget& m_owner;
  EditorRecovery m_recovery;
  frm_RTF_HTM* m_window = nullptr;
  LostDocument m_lost;
  bool m_hasAsked = false;
};

}  // namespace snipdeck

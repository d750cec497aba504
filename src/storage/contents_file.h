#pragma once

#include "platform/file_dialogs.h"
#include "platform/message_box.h"
#include "storage/file_text.h"

namespace snipdeck {

/// The file that the user goes on collecting under: it is loaded into the cumulative text.
class ContentsFile {
 public:
  /// All of them outlive this. `contentsFileName` changes with the user's choice.
  ContentsFile(FileText& cumulative, FileDialogs& dialogs, MessageBox& messages, QString& contentsFileName);

  /// "Get file for cumulative clipboard", after a question where the text has been changed. Nothing happens while the
  /// cumulative text is not shown.
  void Get();
  /// Loads the file; `ask` 1 lets the user choose it first, and a cancelled choice loads nothing. A name of no file
  /// does nothing.
  void LoadFileIntoCumulative(int ask);

 private:
  bool Choose();

  FileText& m_cumulative;
  FileDialogs& m_dialogs;
  MessageBox& m_messages;
  QString& m_contentsFileName;
};

}  // namespace snipdeck

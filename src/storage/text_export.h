#pragma once

#include <functional>
#include <memory>

#include "platform/file_dialogs.h"
#include "platform/message_box.h"
#include "storage/file_text.h"

namespace snipdeck {

/// How text leaves the program for files of the user's choice.
class TextExport {
 public:
  struct Texts {
    FileText& largeView;
    FileText& cumulative;
    /// Makes the text in which a file is put together before it is written.
    std::function<std::unique_ptr<FileText>()> makeScratch;
    /// Tells the user that the large view has to be shown.
    std::function<void()> showNeedsLargeView;
  };
  /// Names that the dialogs propose, and that the user's choices change.
  struct Names {
    QString& contents;
    QString& cumulative;
  };

  /// What `texts` and `names` refer to, and the others, outlive this.
  TextExport(Texts texts, Names names, FileDialogs& dialogs, MessageBox& messages);

  /// Adds the large view's selection, or all of it, to the start or the end of a file that exists.
  void AppendToFile();
  /// Saves the large view, or the cumulative text, under a name.
  void SaveLargeView();
  void SaveCumulative();

 private:
  static FileFormat AppendFormatFor(const QString& name);
  void AppendTo(const QString& name);
  bool AskForStart(const QString& name, bool& toStart);
  void Save(FileText& text, const QString& title, QString& name);

  Texts m_texts;
  Names m_names;
  FileDialogs& m_dialogs;
  MessageBox& m_messages;
};

}  // namespace snipdeck

#pragma once

#include <functional>

#include <QObject>

#include "platform/changed_document_question.h"
#include "platform/file_dialogs.h"
#include "platform/long_work.h"
#include "platform/message_box.h"
#include "platform/result.h"
#include "platform/saving_notice.h"

namespace snipdeck {

class RichTextControl;

/// What the editor is shown for.
enum class OpenMode { File = 0, New = 1 };

/// The one document of the editor: its file, the mark that tells whether it was changed, and the commands that replace
/// or write it. Whatever would lose changes asks first. A failed save changes nothing: the file, its name and the mark
/// stay as they were.
class EditorDocument : public QObject {
  Q_OBJECT

 public:
  struct Services {
    FileDialogs& dialogs;
    MessageBox& messages;
    ChangedDocumentQuestion& question;
    SavingNotice& notice;
    LongWork& longWork;
  };

  EditorDocument(RichTextControl& control, const Services& services);

  /// A fresh document: the file `path`, or an empty one.
  void Start(OpenMode mode, const QString& path);
  /// A changed document whose file may hold something else; `fill` puts its text into the empty control.
  void Resume(const QString& path, const std::function<void()>& fill);
  void Open();
  void New();
  void Save();
  void SaveAs();
  /// Asks about a changed document. False when the user wants to keep it here, or it could not be saved.
  bool ConfirmDiscard();

  QString FileName() const { return m_fileName; }
  /// 1 when the text was changed since it was loaded, made or saved; otherwise 0.
  int ChangedMark() const { return m_changedMark; }
  void MarkChanged();
  /// While it is being written; nothing else is to be done with it then.
  bool IsSaving() const { return m_isSaving; }

 signals:
  void CaptionChanged(const QString& caption);
  /// The text is from now on that of the file FileName(), or a new one: there is nothing to lose.
  void Settled();

 private:
  void EmptyText();
  void LoadDocument(OpenMode mode);
  void LoadFile();
  void Settle();
  bool SaveDocument();
  Outcome WriteFile();
  void ReportError(const QString& description);

  RichTextControl& m_control;
  Services m_services;
  QString m_fileName;
  int m_changedMark = 0;
  bool m_isReplacing = false;
  bool m_isSaving = false;
  bool m_isAsking = false;
  /// An error of the control that is told when the file has been written.
  QString m_errorWhileSaving;
  /// There is a file of this name, but what the control holds did not come from it.
  bool m_isUnread = false;
};

}  // namespace snipdeck

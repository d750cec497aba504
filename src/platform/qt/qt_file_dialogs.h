#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/file_dialogs.h"
#include "platform/qt/file_kind_icons.h"

class QFileDialog;

namespace snipdeck {

/// File dialogs of the desktop, in front of the program's active window. Between two dialogs only the last file is
/// remembered.
class QtFileDialogs : public FileDialogs {
 public:
  QString OpenFile(const FileRequest& request) override;
  QString SaveFile(const FileRequest& request) override;
  QString BrowseForFolder(const QString& title, const QString& start) override;

 private:
  void Prepare(QFileDialog& dialog, const FileRequest& request);
  QString RunForFile(QFileDialog& dialog);

  FileKindIcons m_icons;
  QString m_lastName;
};

}  // namespace snipdeck

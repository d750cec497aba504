#pragma once

#include <QDialog>

#include "dialogs/file_details.h"
#include "layout/fonts_and_colours.h"
#include "platform/clipboard_writer.h"
#include "platform/shell.h"

namespace snipdeck {

/// What the file information needs of the program. Everything outlives the window.
struct FileInfoServices {
  MessageBox& messages;
  ClipboardWriter& clipboard;
  Shell& shell;
  FontsAndColours& looks;
};

/// The details of a document's file as they were when they were taken: to read, to copy, and the way to the desktop's
/// own sheet about the file.
class frmTxtInfo : public QDialog {
  Q_OBJECT

 public:
  frmTxtInfo(const FileInfoServices& services, const FileDetails& details, QWidget* owner);

 private:
  void cmdCopyToClipboard_Click();
  void cmdMoreInfo_Click();
  QWidget* MakeDetails();
  QWidget* MakeButtons();
  QString Text() const;

  FileInfoServices m_services;
  FileDetails m_details;
};

}  // namespace snipdeck

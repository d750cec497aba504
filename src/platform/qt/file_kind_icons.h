#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>

namespace snipdeck {

/// Icons and kinds of files for a file dialog, told by the name and by what the directory says of it. No file is ever
/// opened: one that does not answer, as a pipe or a device, would stop the dialog as soon as its name is typed.
class FileKindIcons : public QAbstractFileIconProvider {
 public:
  FileKindIcons();

  QIcon icon(IconType type) const override;
  QIcon icon(const QFileInfo& info) const override;
  QString type(const QFileInfo& info) const override;

 private:
  QIcon m_folder;
  QIcon m_file;
};

}  // namespace snipdeck

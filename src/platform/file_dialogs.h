#pragma once

#include <optional>

#include <QList>
#include <QString>

namespace snipdeck {

/// One entry of a file dialog's list of kinds, such as "RTF files (*.rtf)" with the pattern "*.rtf". "*.*" stands for
/// every file, with or without a dot; so does "*.exe" where programs have no ending.
struct FileFilter {
  QString label;
  QString pattern;

  bool operator==(const FileFilter&) const = default;
};

/// What a file dialog shows.
struct FileRequest {
  QString title;
  /// The proposed name; a name without a folder belongs to the current working folder, where the dialog then starts.
  /// Without a value: the name and the folder that the last dialog ended with.
  std::optional<QString> fileName;
  /// The first one is selected. An empty list shows every file.
  QList<FileFilter> filters;
  /// Added to a name that was typed without an ending, as "rtf"; empty adds nothing.
  QString defaultExtension;
};

/// "RTF files (*.rtf)" and "All files (*.*)", the usual list for texts.
inline QList<FileFilter> RtfAndAllFiles() {
  return {{QStringLiteral("RTF files (*.rtf)"), QStringLiteral("*.rtf")},
          {QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}};
}

/// The desktop's dialogs for files and folders. One object serves all windows. Every call returns when the user has
/// answered and gives a full path with the system's separators, or "" when the user cancelled.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  /// A file that exists.
  virtual QString OpenFile(const FileRequest& request) = 0;
  /// A file in a folder that exists; the user is asked before an existing file is chosen.
  virtual QString SaveFile(const FileRequest& request) = 0;
  /// A folder of the file system; `start` is where the user begins to look.
  virtual QString BrowseForFolder(const QString& title, const QString& start) = 0;
};

}  // namespace snipdeck

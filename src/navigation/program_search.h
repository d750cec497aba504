#pragma once

#include "platform/file_lookup.h"

namespace snipdeck {

/// Where a program or its argument really lies. The programs of the suite may live at their expected path, in the
/// suite's home folder, or on a mirror: a tree copied from drive d onto drive x keeps its paths under x:\Drive_d\.
class ProgramSearch {
 public:
  /// `ownFolder` is the folder of this program's executable, without a separator at its end. `separator` is the
  /// platform's; a backslash separates everywhere.
  ProgramSearch(const FileLookup& files, const QString& ownFolder, QChar separator);

  /// The path at which a file exists, looked for at `program`, in the home folder, on the mirror drives C to Z, on the
  /// drive of this program and in its folder; where there is none, the last of these. An empty path stays empty.
  QString FindProgram(const QString& program) const;
  /// The argument as a usable path: a bare name lies in this program's folder (which changes `argument` too), a mirror
  /// path stands for the drive that it mirrors and the other way round. An empty argument stays empty, so that a
  /// program without an argument opens as it likes best. A folder never counts as an existing file.
  QString ResolveProgramArgument(QString& argument) const;
  /// The part behind the last separator.
  QString FileName(const QString& path) const;

 private:
  qsizetype LastSeparator(const QString& path) const;
  bool HasSeparator(const QString& path) const { return LastSeparator(path) >= 0; }
  QString InFolder(const QString& folder, const QString& name) const;
  QString InHomeFolder(const QString& program) const;
  QString OnMirrorDrive(const QString& path) const;
  QString OnOwnDrive(const QString& program) const;

  const FileLookup& m_files;
  QString m_ownFolder;
  QChar m_separator;
};

}  // namespace snipdeck

#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace snipdeck {

/// What the question about a changed document tells of its file, in the words that the user sees. Taken once, when the
/// question comes up.
struct FileDetails {
  /// The part of the path behind its last separator, and the part before it; a path without one is all name.
  QString name;
  QString folder;
  /// Bytes in groups of three digits, so that an empty file has an empty text; "0" where there is no file.
  QString size;
  /// When the file was last changed; "(not yet saved!)" where there is none.
  QString date;
  QString nowTime;
  QString nowDate;

  /// `locale` gives the separators and the general form of a date.
  static FileDetails Of(const QString& path, const QDateTime& now, const QLocale& locale);
  /// Folder and name put together again.
  QString Path() const;
};

}  // namespace snipdeck

#pragma once

#include <QByteArray>
#include <QString>

#include "platform/result.h"
#include "platform/settings.h"
#include "storage/file_reports.h"

namespace snipdeck {

/// Takes what the bytes of a settings file supply; a line that is missing, or a number out of the range of its type,
/// leaves its value as it is. Lines end with CR LF or CR, and with LF in a file that has no CR at all.
void ParseSettings(const QByteArray& bytes, Settings& settings);

/// All values in their order, each followed by CR LF, in the system's ANSI code page where it has one and else in
/// UTF-8.
QByteArray FormatSettings(const Settings& settings);

/// The one file that holds all settings.
class SettingsFile {
 public:
  /// `path` may be empty: then nothing is read.
  SettingsFile(const QString& path, Settings& settings, MessageBox& messages);

  /// Reports nothing: without a readable file all values stay as they are.
  void ReadSettings();
  /// Replaces the file as a whole; a failure is reported to the user, and the old file is still there.
  void WriteSettings();
  /// As WriteSettings, without the report.
  Outcome TryToWrite() const;

 private:
  QString m_path;
  Settings& m_settings;
  FileReports m_reports;
};

/// Gives a user who has no settings file at `path` the one that was installed with the program, so that the first
/// window is a useful one. Where there is none, or the copy fails, the start goes on without.
void CopyFirstSettings(const QString& path, const QString& installed);

}  // namespace snipdeck

#pragma once

#include <QString>

namespace snipdeck {

/// The program's folder, with the system's separators and none at its end: where the settings file lives and, by
/// default, the files of the boxes. On Windows that is the folder of the program where it can be written; elsewhere the
/// user's data folder QM_Snipdeck, which is made, for this user alone, when it is missing. Needs the application's name
/// to be set.
QString ProgramFolder();

/// A file of that name in that folder.
QString FileInFolder(const QString& folder, const QString& name);

/// The settings file that was installed with the program for users who have none; the file need not exist.
QString InstalledSettingsPath();

}  // namespace snipdeck

#include "app/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace snipdeck {

namespace {

// Somebody else's eyes have no business in what was copied, so the folder is closed from its first moment on.
void MakePrivateFolder(const QString& path) {
  if (QFileInfo::exists(path)) return;
  QDir().mkpath(QFileInfo(path).path());
  QDir().mkdir(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

}  // namespace

QString ProgramFolder() {
#ifdef Q_OS_WIN
  const QString beside = QCoreApplication::applicationDirPath();
  if (QFileInfo(beside).isWritable()) return QDir::toNativeSeparators(beside);
#endif
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  MakePrivateFolder(folder);
  return QDir::toNativeSeparators(folder);
}

QString FileInFolder(const QString& folder, const QString& name) {
  return folder + QDir::separator() + name;
}

QString InstalledSettingsPath() {
#ifdef Q_OS_WIN
  return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("first_settings.ini"));
#else
  return QDir(QCoreApplication::applicationDirPath())
      .filePath(QStringLiteral("../share/qm_snipdeck/first_settings.ini"));
#endif
}

}  // namespace snipdeck

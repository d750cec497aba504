#include "platform/qt/qt_file_lookup.h"

#include <QDir>
#include <QFileInfo>

namespace snipdeck {

bool QtFileLookup::FileExists(const QString& path) const {
  return !path.isEmpty() && QFileInfo(path).isFile();
}

QString QtFileLookup::CurrentDirectory() const {
  return QDir::toNativeSeparators(QDir::currentPath());
}

void QtFileLookup::SetCurrentDirectory(const QString& folder) {
  QDir::setCurrent(folder);
}

}  // namespace snipdeck

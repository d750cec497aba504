#include "storage/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace snipdeck {

namespace {

Failure FailureOf(const QFileDevice& file) {
  Failure::Kind kind = Failure::Kind::Other;
  if (file.error() == QFileDevice::PermissionsError) kind = Failure::Kind::NoPermission;
  if (file.error() == QFileDevice::ResourceError) kind = Failure::Kind::NoSpace;
  return {kind, file.errorString()};
}

}  // namespace

Outcome WriteWholeFile(const QString& path, QByteArrayView contents) {
  QSaveFile file(path);
  file.setDirectWriteFallback(false);
  if (!file.open(QIODevice::WriteOnly)) return FailureOf(file);
  // A failure while the last bytes leave the buffer is told by flush(); commit() alone would overlook it.
  if (file.write(contents.data(), contents.size()) != contents.size() || !file.flush() || !file.commit())
    return FailureOf(file);
  return Done{};
}

Result<QByteArray> ReadWholeFile(const QString& path) {
  QFile file(path);
  if (!file.exists()) return Failure{Failure::Kind::NotFound, QString()};
  if (!file.open(QIODevice::ReadOnly)) return FailureOf(file);
  const QByteArray contents = file.readAll();
  if (file.error() != QFileDevice::NoError) return FailureOf(file);
  return contents;
}

void DeleteFileIfPresent(const QString& path) {
  if (!path.isEmpty() && QFileInfo::exists(path)) QFile::remove(path);
}

}  // namespace snipdeck

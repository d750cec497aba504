#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace snipdeck {

namespace {

constexpr qint64 kLargestFile = 1024LL * 1024 * 1024;

Failure FailureOf(const QFileDevice& file) {
  Failure::Kind kind = Failure::Kind::Other;
  if (file.error() == QFileDevice::PermissionsError) kind = Failure::Kind::NoPermission;
  if (file.error() == QFileDevice::ResourceError) kind = Failure::Kind::NoSpace;
  return {kind, file.errorString()};
}

Failure NotAFile(const QFileInfo& info) {
  return {Failure::Kind::Refused, info.isDir() ? QStringLiteral("Is a directory") : QStringLiteral("Not a file")};
}

/// A write that fills the disk ends early without saying why; the next one does.
bool WriteAll(QFileDevice& file, QByteArrayView contents) {
  while (!contents.isEmpty()) {
    const qint64 written = file.write(contents.data(), contents.size());
    if (written <= 0) return false;
    contents = contents.sliced(written);
  }
  return true;
}

}  // namespace

Outcome WriteWholeFile(const QString& path, QByteArrayView contents) {
  // A device or pipe of that name would be gone afterwards, with a file in its place.
  const QFileInfo present(path);
  if (present.exists() && !present.isFile()) return NotAFile(present);
  QSaveFile file(path);
  file.setDirectWriteFallback(false);
  if (!file.open(QIODevice::WriteOnly)) return FailureOf(file);
  // A failure while the last bytes leave the buffer is told by flush(); commit() alone would overlook it.
  if (!WriteAll(file, contents) || !file.flush() || !file.commit()) return FailureOf(file);
  return Done{};
}

Outcome WriteFileOrDevice(const QString& path, QByteArrayView contents) {
  const QFileInfo present(path);
  if (!present.exists() || present.isFile()) return WriteWholeFile(path, contents);
  if (present.isDir()) return NotAFile(present);
  QFile device(path);
  if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return FailureOf(device);
  if (!WriteAll(device, contents)) return FailureOf(device);
  return Done{};
}

Result<QByteArray> ReadWholeFile(const QString& path) {
  const QFileInfo info(path);
  if (path.isEmpty()) return Failure{Failure::Kind::NotFound, QStringLiteral("No file name specified")};
  // Opening a pipe would wait for somebody to write into it.
  if (info.exists() && !info.isFile()) return NotAFile(info);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return info.exists() ? FailureOf(file) : Failure{Failure::Kind::NotFound, file.errorString()};
  if (file.size() > kLargestFile) return Failure{Failure::Kind::TooLarge, QStringLiteral("The file is too large")};
  const QByteArray contents = file.readAll();
  if (file.error() != QFileDevice::NoError) return FailureOf(file);
  return contents;
}

void DeleteFileIfPresent(const QString& path) {
  if (!path.isEmpty() && QFileInfo::exists(path)) QFile::remove(path);
}

}  // namespace snipdeck

#pragma once

#include <QByteArrayView>
#include <QString>

#include "platform/result.h"

namespace snipdeck {

/// Replaces the file at `path`, or makes it, as a whole: whatever happens meanwhile, a crash or a full disk, the old
/// contents or the new ones are there, never a part. A failure tells the platform's words for it.
Outcome WriteWholeFile(const QString& path, QByteArrayView contents);

/// The same for a plain file or a new one; but a pipe or a device at `path` gets the contents and stays what it is. Waits for
/// whoever reads the pipe.
Outcome WriteFileOrDevice(const QString& path, QByteArrayView contents);

/// The whole contents of a file of up to 1 GiB; pipes and devices are refused.
Result<QByteArray> ReadWholeFile(const QString& path);

/// Deletes the file at `path` if there is one. A failure is not told: who deletes first finds out when it writes.
void DeleteFileIfPresent(const QString& path);

}  // namespace snipdeck

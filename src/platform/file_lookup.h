#pragma once

#include <QString>

namespace snipdeck {

/// What the file system says about names, and the current directory. Paths are in the platform's own form.
class FileLookup {
 public:
  virtual ~FileLookup() = default;

  /// True if a file of that name is there. A folder does not count as a file, and an empty name names none; a drive
  /// that does not exist or is not ready has no files.
  virtual bool FileExists(const QString& path) const = 0;
  /// Without a separator at its end, except where it is a root.
  virtual QString CurrentDirectory() const = 0;
  /// Where that is refused, the current directory stays.
  virtual void SetCurrentDirectory(const QString& folder) = 0;
};

}  // namespace snipdeck

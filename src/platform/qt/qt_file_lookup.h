#pragma once

#include "platform/file_lookup.h"

namespace snipdeck {

/// The files of this computer.
class QtFileLookup : public FileLookup {
 public:
  bool FileExists(const QString& path) const override;
  QString CurrentDirectory() const override;
  void SetCurrentDirectory(const QString& folder) override;
};

}  // namespace snipdeck

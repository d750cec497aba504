#pragma once

#include <QSet>
#include <QStringList>

#include "platform/file_lookup.h"

namespace snipdeck {

/// A computer with just these files.
class FakeFileLookup : public FileLookup {
 public:
  bool FileExists(const QString& path) const override {
    m_asked.append(path);
    return !path.isEmpty() && files.contains(path);
  }
  QString CurrentDirectory() const override { return directory; }
  void SetCurrentDirectory(const QString& folder) override { directory = folder; }
  /// Every path that was asked for, in this order.
  const QStringList& Asked() const { return m_asked; }

  QSet<QString> files;
  QString directory = QStringLiteral("C:\\Work");

 private:
  mutable QStringList m_asked;
};

}  // namespace snipdeck

#pragma once

#include <vector>

#include <QByteArray>
#include <QString>

#include "platform/result.h"

namespace snipdeck {

/// The parts of an Office Open XML file that is being written. Equal parts give equal files: no time is written down.
class ZipWriter {
 public:
  void Add(const QString& part, const QByteArray& content) { m_parts.push_back({part, content}); }
  /// The bytes of the file.
  Result<QByteArray> Finish() const;

 private:
  struct Part {
    QString name;
    QByteArray content;
  };
  std::vector<Part> m_parts;
};

}  // namespace snipdeck

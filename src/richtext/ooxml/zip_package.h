#pragma once

#include <memory>

#include <QByteArray>
#include <QHash>
#include <QString>

#include "platform/result.h"

struct zip;

namespace snipdeck {

/// What a part says about another one, or about an address outside of the file.
struct Relationship {
  QString type;    ///< The last word of the type's address, as "image".
  QString target;  ///< Name of a part of the package, or an address as it stands when it is `external`.
  bool external = false;
};
using Relationships = QHash<QString, Relationship>;

/// The first part of the package that has this type; empty where there is none.
QString PartOfType(const Relationships& relationships, const char* type);

/// The parts of an Office Open XML file, read from memory; nothing is ever unpacked to the disk. How much is unpacked is
/// bounded, whatever sizes the file announces.
class ZipPackage {
 public:
  /// The bytes must outlive the package. Fails with Malformed for what is no such file or is cut, with Refused for one
  /// that is encrypted.
  static Result<ZipPackage> Open(const QByteArray& bytes);

  bool Has(const QString& part) const;
  /// The contents of a part; Malformed when it is missing or damaged, TooLarge when it unpacks to more than is sensible.
  Result<QByteArray> Part(const QString& part);
  /// The contents of a part beside the document itself: empty where it is missing or cannot be read.
  QByteArray OptionalPart(const QString& part);
  /// The relationships of a part; none when it has none. "" is the package itself.
  Relationships RelationshipsOf(const QString& part);
  /// The part that holds the document itself; `usual` where the package does not say.
  QString MainPart(const QString& usual);

 private:
  struct Close {
    void operator()(zip* archive) const;
  };
  explicit ZipPackage(zip* archive) : m_archive(archive) {}

  std::unique_ptr<zip, Close> m_archive;
  qint64 m_unpacked = 0;
};

}  // namespace snipdeck

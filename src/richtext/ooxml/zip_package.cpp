#include "richtext/ooxml/zip_package.h"

#include <QDir>

#include <zip.h>

#include "richtext/ooxml/xml_part.h"

namespace snipdeck {
namespace {

constexpr zip_int64_t kMaxEntries = 20'000;
constexpr qint64 kMaxUnpacked = 512LL * 1024 * 1024;  // of all parts together
constexpr qint64 kSmallPart = 8LL * 1024 * 1024;      // parts up to here may be packed as tightly as they like
constexpr qint64 kTightest = 150;                     // documents are seldom packed to less than a sixtieth

Failure Malformed(const char* text) {
  return {Failure::Kind::Malformed, QString::fromLatin1(text)};
}

// Encrypted documents, and those of older programs, are compound files; the streams' names tell which.
Failure WhyNoZip(const QByteArray& bytes) {
  if (!bytes.startsWith("\xD0\xCF\x11\xE0")) return Malformed("The file is damaged, or not of this kind.");
  const QString stream = QStringLiteral("EncryptedPackage");
  const QByteArrayView name(reinterpret_cast<const char*>(stream.utf16()), stream.size() * 2);
  if (bytes.contains(name)) return {Failure::Kind::Refused, QStringLiteral("The file is protected by a password.")};
  return Malformed("The file is one of an older program under a new name.");
}

/// A part's name from an address in another part; empty for one that leads out of the package.
QString PartOf(const QString& folder, const QString& target) {
  const QString path = QDir::cleanPath(target.startsWith(u'/') ? target.mid(1) : folder + target);
  return path.startsWith(QLatin1String("..")) ? QString() : path;
}

QString FolderOf(const QString& part) {
  return part.left(part.lastIndexOf(u'/') + 1);
}

}  // namespace

QString PartOfType(const Relationships& relationships, const char* type) {
  for (const Relationship& relationship : relationships) {
    if (relationship.type == QLatin1String(type) && !relationship.external) return relationship.target;
  }
  return {};
}

void ZipPackage::Close::operator()(zip* archive) const {
  zip_discard(archive);
}

Result<ZipPackage> ZipPackage::Open(const QByteArray& bytes) {
  zip_source_t* const source =
      zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, nullptr);
  zip_t* const archive = source ? zip_open_from_source(source, ZIP_RDONLY, nullptr) : nullptr;
  if (!archive) {
    zip_source_free(source);
    return WhyNoZip(bytes);
  }
  ZipPackage package(archive);
  if (zip_get_num_entries(archive, 0) > kMaxEntries) return Malformed("The file has too many parts.");
  return package;
}

bool ZipPackage::Has(const QString& part) const {
  return !part.isEmpty() && zip_name_locate(m_archive.get(), part.toUtf8().constData(), ZIP_FL_NOCASE) >= 0;
}

Result<QByteArray> ZipPackage::Part(const QString& part) {
  constexpr zip_uint64_t kPiece = 256 * 1024;
  const zip_int64_t index = zip_name_locate(m_archive.get(), part.toUtf8().constData(), ZIP_FL_NOCASE);
  zip_stat_t info;
  zip_stat_init(&info);
  if (index < 0 || zip_stat_index(m_archive.get(), static_cast<zip_uint64_t>(index), 0, &info) != 0)
    return Malformed("A part of the file is missing.");
  if (info.encryption_method != ZIP_EM_NONE)
    return Failure{Failure::Kind::Refused, QStringLiteral("The file is protected by a password.")};
  const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(
      zip_fopen_index(m_archive.get(), static_cast<zip_uint64_t>(index), 0), zip_fclose);
  if (!file) return Malformed("A part of the file is damaged.");
  const qint64 packed = std::max<qint64>(static_cast<qint64>(info.comp_size), 1);
  const qint64 most = std::min(kMaxUnpacked - m_unpacked, std::max(kSmallPart, packed * kTightest));
  QByteArray content;
  for (;;) {
    const qsizetype size = content.size();
    content.resize(size + static_cast<qsizetype>(kPiece));
    const zip_int64_t read = zip_fread(file.get(), content.data() + size, kPiece);
    content.resize(size + static_cast<qsizetype>(std::max<zip_int64_t>(read, 0)));
    if (read < 0) return Malformed("A part of the file is damaged.");
    if (content.size() > most)
      return Failure{Failure::Kind::TooLarge, QStringLiteral("The file unpacks to more than can be sensible.")};
    if (read == 0) break;
  }
  m_unpacked += content.size();
  return content;
}

QByteArray ZipPackage::OptionalPart(const QString& part) {
  const Result<QByteArray> content = Has(part) ? Part(part) : Result<QByteArray>(QByteArray());
  return content ? content.Value() : QByteArray();
}

Relationships ZipPackage::RelationshipsOf(const QString& part) {
  const QString folder = FolderOf(part);
  const QString name = folder + QLatin1String("_rels/") + part.mid(folder.size()) + QLatin1String(".rels");
  Relationships relationships;
  const QByteArray content = OptionalPart(name);
  XmlPart xml(content);
  if (!xml.EnterRoot()) return relationships;
  while (xml.readNextStartElement()) {
    Relationship relationship;
    relationship.type = xml.Value("Type").section(u'/', -1);
    relationship.external = xml.Value("TargetMode") == QLatin1String("External");
    relationship.target =
        relationship.external ? xml.Value("Target") : PartOf(folder, xml.Value("Target"));
    relationships.insert(xml.Value("Id"), relationship);
    xml.skipCurrentElement();
  }
  return relationships;
}

QString ZipPackage::MainPart(const QString& usual) {
  for (const Relationship& relationship : RelationshipsOf(QString())) {
    if (relationship.type == QLatin1String("officeDocument") && Has(relationship.target)) return relationship.target;
  }
  return usual;
}

}  // namespace snipdeck

#include "app/recovery_record.h"

#include <QCryptographicHash>
#include <QtEndian>

namespace snipdeck {

namespace {

// Kind, target, encoding, a spare byte; begin, removed, length of the content; then the checksum over all that and the
// content, which follows.
constexpr qsizetype kFieldsSize = 16;
constexpr qsizetype kChecksumSize = 8;
constexpr qsizetype kHeadSize = kFieldsSize + kChecksumSize;

QByteArray Checksum(QByteArrayView fields, QByteArrayView content) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  hash.addData(fields);
  hash.addData(content);
  return hash.result().first(kChecksumSize);
}

QByteArray Fields(const RecoveryRecord& record) {
  QByteArray fields(kFieldsSize, '\0');
  fields[0] = static_cast<char>(record.kind);
  fields[1] = static_cast<char>(record.target);
  fields[2] = static_cast<char>(record.encoding);
  qToLittleEndian(record.begin, fields.data() + 4);
  qToLittleEndian(record.removed, fields.data() + 8);
  qToLittleEndian(static_cast<std::uint32_t>(record.content.size()), fields.data() + 12);
  return fields;
}

bool IsSound(const RecoveryRecord& record) {
  return record.kind <= RecoveryRecord::Kind::Filing && record.encoding <= RecoveryRecord::Encoding::Html &&
         record.target >= 1 && record.target <= RecoveryRecord::kCumulative && record.begin >= 0 &&
         record.removed >= 0 &&
         (!record.IsCopy() || record.target < RecoveryRecord::kCumulative);
}

}  // namespace

QByteArray Encode(const RecoveryRecord& record) {
  const QByteArray fields = Fields(record);
  return fields + Checksum(fields, record.content) + record.content;
}

std::optional<RecoveryRecord> TakeRecord(QByteArrayView& bytes) {
  if (bytes.size() < kHeadSize) return {};
  const QByteArrayView fields = bytes.first(kFieldsSize);
  const qsizetype length = qFromLittleEndian<std::uint32_t>(fields.data() + 12);
  if (bytes.size() - kHeadSize < length) return {};
  const QByteArrayView content = bytes.sliced(kHeadSize, length);
  if (Checksum(fields, content) != bytes.sliced(kFieldsSize, kChecksumSize)) return {};
  RecoveryRecord record{
      static_cast<RecoveryRecord::Kind>(fields[0]),       static_cast<std::uint8_t>(fields[1]),
      static_cast<RecoveryRecord::Encoding>(fields[2]),   qFromLittleEndian<std::int32_t>(fields.data() + 4),
      qFromLittleEndian<std::int32_t>(fields.data() + 8), content.toByteArray()};
  if (!IsSound(record)) return {};
  bytes = bytes.sliced(kHeadSize + length);
  return record;
}

}  // namespace snipdeck

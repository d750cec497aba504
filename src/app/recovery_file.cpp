#include "app/recovery_file.h"

#include <array>

#include <QFileInfo>

#include "platform/whole_file.h"

namespace snipdeck {

namespace {

// The byte behind the mark counts, as a digit, the starts that tried to recover from this file.
constexpr QByteArrayView kMark = "QMSDREC1";
constexpr qint64 kHeadSize = 10;
constexpr qint64 kFirstCompaction = 8'000'000;  // bytes

QByteArray Head(int attempts) {
  return kMark.toByteArray() + static_cast<char>('0' + attempts) + '\n';
}

bool HasHead(QByteArrayView bytes) {
  return bytes.size() >= kHeadSize && bytes.startsWith(kMark) && bytes[kMark.size()] >= '0' &&
         bytes[kMark.size()] <= '9' && bytes[kHeadSize - 1] == '\n';
}

QString FreeName(const QString& path) {
  for (int number = 1;; ++number) {
    const QString name = QStringLiteral("%1.damaged-%2").arg(path).arg(number);
    if (!QFileInfo::exists(name)) return name;
  }
}

}  // namespace

RecoveryFile::RecoveryFile(const QString& path) : m_file(path), m_compactAt(kFirstCompaction) {}

QList<RecoveryRecord> RecoveryFile::TakeOver() {
  const auto read = ReadWholeFile(m_file.fileName());
  if (!read) return {};
  const QByteArray& bytes = read.Value();
  const int attempts = HasHead(bytes) ? bytes[kMark.size()] - '0' : 0;
  if (!HasHead(bytes) || attempts >= kMaxAttempts) {
    KeepAside(true);
    return {};
  }
  const QList<RecoveryRecord> records = ReadRecords(bytes);
  if (m_size < bytes.size()) {
    KeepAside(false);
    Compact(std::vector<bool>(m_entries.size(), true));
  }
  if (Open()) SetAttempts(attempts + 1);
  return records;
}

QList<RecoveryRecord> RecoveryFile::ReadRecords(QByteArrayView bytes) {
  QList<RecoveryRecord> records;
  m_size = kHeadSize;
  QByteArrayView rest = bytes.sliced(kHeadSize);
  while (auto record = TakeRecord(rest)) {
    const qint64 end = bytes.size() - rest.size();
    m_entries.push_back({record->kind, record->target, end - m_size});
    m_size = end;
    records.append(*std::move(record));
  }
  return records;
}

void RecoveryFile::KeepAside(bool leaveNothing) {
  const QString name = FreeName(m_file.fileName());
  if (leaveNothing) {
    QFile::rename(m_file.fileName(), name);
  } else {
    QFile::copy(m_file.fileName(), name);
  }
}

void RecoveryFile::SetAttempts(int attempts) {
  if (!m_file.seek(kMark.size())) return;
  m_file.putChar(static_cast<char>('0' + attempts));
  m_file.seek(m_size);
}

void RecoveryFile::StartSucceeded() {
  if (m_file.isOpen()) SetAttempts(0);
}

bool RecoveryFile::Open() {
  if (m_file.isOpen()) return true;
  const bool opened =
      m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  if (!opened) return false;
  if (m_size == 0) {
    m_file.resize(0);
    m_size = m_file.write(Head(0));
  }
  if (m_size < kHeadSize) Remove();
  return m_file.isOpen() && m_file.seek(m_size);
}

bool RecoveryFile::Append(const RecoveryRecord& record) {
  if (!Open()) return false;
  const QByteArray bytes = Encode(record);
  if (m_file.write(bytes) != bytes.size()) {
    m_file.resize(m_size);
    m_file.seek(m_size);
    return false;
  }
  m_size += bytes.size();
  m_entries.push_back({record.kind, record.target, bytes.size()});
  CompactWhenWorthIt();
  return true;
}

void RecoveryFile::Remove() {
  m_file.close();
  m_file.remove();
  m_size = 0;
  m_entries.clear();
}

std::vector<bool> RecoveryFile::LiveEntries() const {
  std::vector<bool> live(m_entries.size());
  std::array<bool, RecoveryRecord::kCumulative + 1> outdated{};
  bool lastCaptureSeen = false;
  for (size_t i = m_entries.size(); i-- > 0;) {
    const Entry& entry = m_entries[i];
    live[i] = !outdated[entry.target];
    const bool appends = entry.kind == RecoveryRecord::Kind::Capture;
    if (appends || entry.kind == RecoveryRecord::Kind::Filing) {
      // The last one tells where the ring stands.
      live[i] = live[i] || (appends && !outdated[RecoveryRecord::kCumulative]) || !lastCaptureSeen;
      lastCaptureSeen = true;
    }
    if (entry.kind != RecoveryRecord::Kind::Splice) outdated[entry.target] = true;
  }
  return live;
}

void RecoveryFile::CompactWhenWorthIt() {
  if (m_size < m_compactAt) return;
  const std::vector<bool> live = LiveEntries();
  qint64 liveSize = kHeadSize;
  for (size_t i = 0; i < live.size(); ++i) {
    if (live[i]) liveSize += m_entries[i].size;
  }
  if (liveSize < m_size / 2) Compact(live);
  m_compactAt = std::max(kFirstCompaction, 2 * liveSize);
}

void RecoveryFile::Compact(const std::vector<bool>& live) {
  const auto read = ReadWholeFile(m_file.fileName());
  if (!read || read.Value().size() < m_size) return;
  QByteArray kept = read.Value().first(kHeadSize);
  std::vector<Entry> keptEntries;
  qint64 at = kHeadSize;
  for (size_t i = 0; i < m_entries.size(); at += m_entries[i].size, ++i) {
    if (!live[i]) continue;
    kept += QByteArrayView(read.Value()).sliced(at, m_entries[i].size);
    keptEntries.push_back(m_entries[i]);
  }
  // The whole-file writer keeps the file's permissions.
  if (!WriteWholeFile(m_file.fileName(), kept)) return;
  m_file.close();
  m_size = kept.size();
  m_entries = std::move(keptEntries);
}

}  // namespace snipdeck

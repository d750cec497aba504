#pragma once

#include <vector>

#include <QFile>
#include <QList>

#include "app/recovery_record.h"

namespace snipdeck {

/// The file from which the boxes come back after a crash: records, one after the other, each written at once and never
/// changed. It is readable by its user only, exists only while there is something in it, and is rewritten without its
/// outdated records when these have come to outweigh the others. It withstands the end of the program at any moment;
/// the system keeps what was written, so nothing is done against the loss of power.
class RecoveryFile {
 public:
  /// A start that finds the file but does not come to its end is tried again so often; then the file is kept aside.
  static constexpr int kMaxAttempts = 3;

  explicit RecoveryFile(const QString& path);

  /// What a run that ended without removing the file has left, and goes on from there. Damaged parts are not among it;
  /// the damaged file is kept beside this one as <name>.damaged-<number>.
  QList<RecoveryRecord> TakeOver();
  /// The records have been read and shown, and the program still runs.
  void StartSucceeded();
  /// False where the record could not be written, on a full disk for instance; nothing of it is in the file then.
  bool Append(const RecoveryRecord& record);
  /// At the end of a run that leaves nothing to recover.
  void Remove();

 private:
  struct Entry {
    RecoveryRecord::Kind kind;
    std::uint8_t target;
    qint64 size;
  };

  QList<RecoveryRecord> ReadRecords(QByteArrayView bytes);
  void KeepAside(bool leaveNothing);
  void SetAttempts(int attempts);
  bool Open();
  std::vector<bool> LiveEntries() const;
  void CompactWhenWorthIt();
  void Compact(const std::vector<bool>& live);

  QFile m_file;
  qint64 m_size = 0;
  qint64 m_compactAt;
  std::vector<Entry> m_entries;
};

}  // namespace snipdeck

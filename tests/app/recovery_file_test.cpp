#include "app/recovery_file.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "app/edited_range.h"
#include "platform/whole_file.h"

namespace snipdeck {

namespace {

using Kind = RecoveryRecord::Kind;

RecoveryRecord Record(Kind kind, int target, const QByteArray& content) {
  RecoveryRecord record;
  record.kind = kind;
  record.target = static_cast<std::uint8_t>(target);
  record.encoding = RecoveryRecord::Encoding::Rtf;
  record.begin = 3;
  record.removed = 1;
  record.content = content;
  return record;
}

}  // namespace

class RecoveryFileTest : public QObject {
  Q_OBJECT

  struct Fixture {
    QTemporaryDir folder;
    QString path = folder.filePath("recovery");
    QList<RecoveryRecord> written = {Record(Kind::Capture, 1, "first"), Record(Kind::Whole, 2, ""),
                                     Record(Kind::Splice, 13, QByteArray(1000, '\n'))};

    void WriteAll() {
      RecoveryFile file(path);
      for (const RecoveryRecord& record : written) QVERIFY(file.Append(record));
    }
    QList<RecoveryRecord> Read() { return RecoveryFile(path).TakeOver(); }
    QByteArray Bytes() { return ReadWholeFile(path).Value(); }
    QStringList Damaged() { return QDir(folder.path()).entryList({"*.damaged-*"}, QDir::Files); }
  };

 private slots:
  void RecordsComeBackAndTheFileGoesOn() {
    Fixture f;
    QVERIFY(f.Read().isEmpty());
    QVERIFY(!QFile::exists(f.path));
    f.WriteAll();
    QCOMPARE(QFile::permissions(f.path) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
    {
      RecoveryFile again(f.path);
      QVERIFY(again.TakeOver() == f.written);
      again.StartSucceeded();
      f.written.append(Record(Kind::Capture, 12, "after"));
      QVERIFY(again.Append(f.written.last()));
    }
    QVERIFY(f.Read() == f.written);
    QVERIFY(f.Damaged().isEmpty());
    RecoveryFile(f.path).Remove();
    QVERIFY(!QFile::exists(f.path));
  }

  void ADamagedFileIsKeptAsideAndItsSoundBeginningUsed() {
    const QByteArray whole = [] {
      Fixture f;
      f.WriteAll();
      return f.Bytes();
    }();
    for (qsizetype cut = 0; cut < whole.size(); cut += cut < 70 ? 1 : 197) {
      Fixture f;
      QVERIFY(WriteWholeFile(f.path, whole.first(cut)));
      const QList<RecoveryRecord> read = f.Read();
      QVERIFY(read == f.written.first(read.size()));
      QVERIFY(read.size() < 3);
      const bool endsWithARecord = cut == 10 || cut == 10 + 24 + 5 || cut == 10 + 24 + 5 + 24;
      QCOMPARE(f.Damaged().size(), endsWithARecord ? 0 : 1);
      QVERIFY(f.Read() == read);
    }
    for (qsizetype at = 0; at < 100; at += 3) {
      QByteArray flipped = whole;
      flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
      Fixture f;
      QVERIFY(WriteWholeFile(f.path, flipped));
      QVERIFY(f.Read().size() < 3);
      QCOMPARE(f.Damaged().size(), 1);
      QCOMPARE(ReadWholeFile(f.folder.filePath(f.Damaged().first())).Value(), flipped);
    }
  }

  void AFileThatEndsEveryStartIsKeptAside() {
    Fixture f;
    f.WriteAll();
    for (int start = 0; start < RecoveryFile::kMaxAttempts; ++start) QCOMPARE(f.Read().size(), 3);
    QVERIFY(f.Read().isEmpty());
    QCOMPARE(f.Damaged().size(), 1);
    QVERIFY(!QFile::exists(f.path));
  }

  void OutdatedRecordsGo() {
    Fixture f;
    const QByteArray edit(1'000'000, 'e');
    {
      RecoveryFile file(f.path);
      QVERIFY(file.Append(Record(Kind::Capture, 1, "first copy")));
      QVERIFY(file.Append(Record(Kind::Capture, 2, "second copy")));
      for (int i = 0; i < 20; ++i) QVERIFY(file.Append(Record(Kind::Whole, 2, edit)));
      QVERIFY(file.Append(Record(Kind::Splice, 2, "part")));
    }
    QVERIFY2(f.Bytes().size() < 12'000'000, qPrintable(QString::number(f.Bytes().size())));
    const QList<RecoveryRecord> read = f.Read();
    // The cumulative text was never written as a whole, so every copy is still needed.
    QCOMPARE(read[0].content, QByteArray("first copy"));
    QCOMPARE(read[1].content, QByteArray("second copy"));
    QVERIFY(read.contains(Record(Kind::Whole, 2, edit)));
    QCOMPARE(read.last().content, QByteArray("part"));
    QVERIFY(f.Damaged().isEmpty());
  }

  void AnEditedRangeTellsWhatChanged() {
    QRandomGenerator random(99);
    for (int round = 0; round < 500; ++round) {
      QString written = QString(40, u'.');
      for (QChar& c : written) c = QChar(u'a' + random.bounded(26));
      QString now = written;
      EditedRange range;
      for (int edit = 0; edit < 5; ++edit) {
        const int position = random.bounded(static_cast<int>(now.size()) + 1);
        const int removed = random.bounded(std::min(6, static_cast<int>(now.size()) - position + 1));
        const QString added(random.bounded(5), QChar(u'0' + edit));
        now.replace(position, removed, added);
        range.Add(position, removed, static_cast<int>(added.size()));
      }
      QString replayed = written;
      replayed.replace(range.Begin(), range.Removed(), now.mid(range.Begin(), range.End() - range.Begin()));
      QCOMPARE(replayed, now);
    }
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::RecoveryFileTest)
#include "recovery_file_test.moc"

#include "platform/whole_file.h"

#include <cerrno>
#include <csignal>
#include <sys/resource.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace snipdeck {

namespace {

/// No file may grow beyond so many bytes while this lives: the system itself refuses, as a full disk does.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

 private:
  rlimit m_before{};
};

}  // namespace

class WholeFileTest : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;
  QString m_path = m_folder.filePath("file");

  QByteArray Contents() const {
    const auto read = ReadWholeFile(m_path);
    return read ? read.Value() : QByteArray("unreadable");
  }

 private slots:
  void init() { QVERIFY(WriteWholeFile(m_path, "the old contents")); }

  void ReplacesAndKeepsPermissions() {
    QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(WriteWholeFile(m_path, "new"));
    QCOMPARE(Contents(), QByteArray("new"));
    QVERIFY(!(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther)));
  }

  void AFullDiskLeavesTheOldFileWhereverItStrikes() {
    const QByteArray contents(50, 'x');
    for (rlim_t room = 0; room < 50; ++room) {
      const FileSizeLimit limit(room);
      const Outcome written = WriteWholeFile(m_path, contents);
      QVERIFY2(!written, qPrintable(QString::number(room)));
      QVERIFY(!written.Error().text.isEmpty());
    }
    QCOMPARE(Contents(), QByteArray("the old contents"));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
    const FileSizeLimit limit(50);
    QVERIFY(WriteWholeFile(m_path, contents));
  }

  void AFullDiskIsNamedAlsoWhenItTakesAPart() {
    const FileSizeLimit limit(100000);
    const Outcome written = WriteWholeFile(m_path, QByteArray(300000, 'x'));
    QVERIFY(!written && written.Error().text == qt_error_string(EFBIG));
  }

  void WhatCannotBeWrittenOrReadIsTold() {
    QVERIFY(!WriteWholeFile(m_folder.filePath("no such folder/file"), "x"));
    QVERIFY(!WriteWholeFile(QString(), "x"));
    const auto missing = ReadWholeFile(m_folder.filePath("missing"));
    QVERIFY(!missing && missing.Error().kind == Failure::Kind::NotFound);
    QVERIFY(!ReadWholeFile(m_folder.path()));
  }

  void DeletingIsQuiet() {
    DeleteFileIfPresent(QString());
    DeleteFileIfPresent(m_folder.filePath("missing"));
    DeleteFileIfPresent(m_path);
    QVERIFY(!QFile::exists(m_path));
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::WholeFileTest)
#include "whole_file_test.moc"

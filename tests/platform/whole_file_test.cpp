#include "platform/whole_file.h"

#include <cerrno>
#include <memory>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include "fakes/file_size_limit.h"

namespace snipdeck {

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

  void WhatCannotBeWrittenOrReadIsTold_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("notRead");     // empty where it can be
    QTest::addColumn<QString>("notWritten");
    const QString noFile = qt_error_string(ENOENT);
    const QString tooLong = qt_error_string(ENAMETOOLONG);
    const QString loops = qt_error_string(ELOOP);
    QTest::newRow("no name") << QString() << "No file name specified" << noFile;
    QTest::newRow("no such folder") << m_folder.filePath("none/file") << noFile << noFile;
    QTest::newRow("a directory") << m_folder.path() << "Is a directory" << "Is a directory";
    QTest::newRow("below a file") << m_path + "/file" << qt_error_string(ENOTDIR) << qt_error_string(ENOTDIR);
    QTest::newRow("a pipe") << m_folder.filePath("pipe") << "Not a file" << "Not a file";
    QTest::newRow("a device") << "/dev/zero" << "Not a file" << "Not a file";
    QTest::newRow("a name too long") << m_folder.filePath(QString(300, 'n')) << tooLong << tooLong;
    QTest::newRow("links in a circle") << m_folder.filePath("circle") << loops << QString();
  }
  // A pipe must not be waited for, and nothing may be put in the place of what is no file.
  void WhatCannotBeWrittenOrReadIsTold() {
    mkfifo(qPrintable(m_folder.filePath("pipe")), 0600);
    QFile::link("circle", m_folder.filePath("circle"));
    QFETCH(QString, path);
    const auto read = ReadWholeFile(path);
    QTEST(read ? QString() : read.Error().text, "notRead");
    const Outcome written = WriteWholeFile(path, "x");
    QTEST(written ? QString() : written.Error().text, "notWritten");
    QVERIFY(!QFileInfo(m_folder.filePath("pipe")).isFile());
  }

  void APipeOrDeviceIsWrittenIntoAndStays() {
    const QString pipe = m_folder.filePath("into");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    const QByteArray contents(200000, 'x');  // more than a pipe takes at once
    QByteArray arrived;
    const std::unique_ptr<QThread> reader(QThread::create([&] {
      QFile file(pipe);
      if (file.open(QIODevice::ReadOnly)) arrived = file.readAll();
    }));
    reader->start();
    QVERIFY(WriteFileOrDevice(pipe, contents));
    QVERIFY(reader->wait(10000));
    QCOMPARE(arrived, contents);
    QVERIFY(!QFileInfo(pipe).isFile());
    QVERIFY(WriteFileOrDevice(m_path, "new"));
    QCOMPARE(Contents(), QByteArray("new"));
    QVERIFY(!WriteFileOrDevice(m_folder.path(), "x"));

    const QString full = m_folder.filePath("full");
    const bool isMade = mknod(qPrintable(full), S_IFCHR | 0600, makedev(1, 7)) == 0;
    if (!isMade || !QFile(full).open(QIODevice::WriteOnly)) QSKIP("Only root makes devices, and not everywhere.");
    const Outcome written = WriteFileOrDevice(full, "x");
    QVERIFY(!written);
    QCOMPARE(written.Error().text, qt_error_string(ENOSPC));
    QVERIFY(QFileInfo::exists(full) && !QFileInfo(full).isFile());
  }

  void FilesThatTellNoSizeAreReadWhole() { QVERIFY(ReadWholeFile("/proc/self/status").Value().contains("Threads")); }

  void ALinkGoesOnLeadingToItsFile() {
    const QString link = m_folder.filePath("link");
    QVERIFY(QFile::link(m_path, link));
    QVERIFY(WriteWholeFile(link, "new"));
    QCOMPARE(Contents(), QByteArray("new"));
    QVERIFY(QFileInfo(link).isSymLink());
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

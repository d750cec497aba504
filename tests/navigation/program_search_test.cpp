#include "navigation/program_search.h"

#include <QTest>

#include "fakes/fake_file_lookup.h"

namespace snipdeck {

class ProgramSearchTest : public QObject {
  Q_OBJECT

 private:
  static constexpr char kProgram[] = "C:\\a\\b.exe";

  QString Find(const FakeFileLookup& files, const char* program = kProgram) {
    return ProgramSearch(files, QStringLiteral("P:\\Own"), u'\\').FindProgram(QString::fromLatin1(program));
  }

 private slots:
  void ProgramIsLookedForInOrder_data() {
    QTest::addColumn<QString>("path");
    // Each is found although all that follow are there too.
    QTest::newRow("where it is expected") << "C:\\a\\b.exe";
    QTest::newRow("in the home folder") << "C:\\Quillhome\\b.exe";
    QTest::newRow("on the first mirror drive") << "C:\\Drive_C\\a\\b.exe";
    QTest::newRow("on a later one") << "E:\\Drive_C\\a\\b.exe";
    QTest::newRow("on the last one") << "Z:\\Drive_C\\a\\b.exe";
    QTest::newRow("in the program's folder") << "P:\\Own\\b.exe";
  }
  void ProgramIsLookedForInOrder() {
    static const QStringList order = {"C:\\a\\b.exe",          "C:\\Quillhome\\b.exe",  "C:\\Drive_C\\a\\b.exe",
                                      "E:\\Drive_C\\a\\b.exe", "Z:\\Drive_C\\a\\b.exe", "P:\\Own\\b.exe"};
    QFETCH(QString, path);
    FakeFileLookup files;
    for (qsizetype i = order.indexOf(path); i < order.size(); ++i) files.files.insert(order[i]);
    QCOMPARE(Find(files), path);
  }

  void EveryDriveFromCToZIsAskedOnce() {
    FakeFileLookup files;
    QCOMPARE(Find(files), QStringLiteral("P:\\Own\\b.exe"));
    QStringList mirrors;
    for (char drive = 'C'; drive <= 'Z'; ++drive)
      mirrors.append(QLatin1Char(drive) + QStringLiteral(":\\Drive_C\\a\\b.exe"));
    QCOMPARE(files.Asked().filter(QStringLiteral(":\\Drive_")).mid(0, mirrors.size()), mirrors);
  }

  void DriveOfThisProgramIsAMirrorToo() {
    FakeFileLookup files;
    files.files = {QStringLiteral("\\:\\Drive_C\\a\\b.exe")};
    const ProgramSearch onShare(files, QStringLiteral("\\\\server\\own"), u'\\');
    QCOMPARE(onShare.FindProgram(QString::fromLatin1(kProgram)), QStringLiteral("\\:\\Drive_C\\a\\b.exe"));
  }

  void EmptyPathIsNotLookedFor() {
    FakeFileLookup files;
    QCOMPARE(Find(files, ""), QString());
    QVERIFY(files.Asked().isEmpty());
  }

  void Arguments_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("result");
    QTest::newRow("bare name") << "note.txt"
                               << ""
                               << "P:\\Own\\note.txt";
    QTest::newRow("mirrored folder") << "D:\\Drive_G\\Texts"
                                     << ""
                                     << "G:\\Texts";
    QTest::newRow("mirrored file that is there") << "D:\\Drive_G\\a.txt"
                                                 << "D:\\Drive_G\\a.txt"
                                                 << "D:\\Drive_G\\a.txt";
    QTest::newRow("mirrored file that is only on another mirror") << "D:\\Drive_G\\a.txt"
                                                                  << "F:\\Drive_G\\a.txt"
                                                                  << "F:\\Drive_G\\a.txt";
    QTest::newRow("file that is only on a mirror") << "G:\\a.txt"
                                                   << "X:\\Drive_G\\a.txt"
                                                   << "X:\\Drive_G\\a.txt";
    QTest::newRow("other folder") << "G:\\Texts"
                                  << ""
                                  << "G:\\Texts";
    QTest::newRow("prefix at the start") << ":\\Drive_G\\Texts"
                                         << ""
                                         << ":\\Drive_G\\Texts";
    QTest::newRow("single letter") << "x"
                                   << ""
                                   << "C:\\Work\\x";
    QTest::newRow("single letter that is a file") << "x"
                                                  << "x"
                                                  << "x";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
  }
  void Arguments() {
    QFETCH(QString, argument);
    QFETCH(QString, file);
    FakeFileLookup files;
    files.files = {file};
    const ProgramSearch search(files, QStringLiteral("P:\\Own"), u'\\');
    QTEST(search.ResolveProgramArgument(argument), "result");
  }

  void BareNameChangesTheCallersToo() {
    FakeFileLookup files;
    QString argument = QStringLiteral("note.txt");
    ProgramSearch(files, QStringLiteral("P:\\Own"), u'\\').ResolveProgramArgument(argument);
    QCOMPARE(argument, QStringLiteral("P:\\Own\\note.txt"));
  }

  void RootOfADriveTakesNoSecondSeparator() {
    FakeFileLookup files;
    files.directory = QStringLiteral("C:\\");
    QString argument = QStringLiteral("x");
    QCOMPARE(ProgramSearch(files, QStringLiteral("P:\\Own"), u'\\').ResolveProgramArgument(argument),
             QStringLiteral("C:\\x"));
  }

  void SlashesSeparateWhereThePlatformSaysSo() {
    FakeFileLookup files;
    const ProgramSearch search(files, QStringLiteral("/opt/own"), u'/');
    QString folder = QStringLiteral("/home/me/texts");
    QCOMPARE(search.ResolveProgramArgument(folder), folder);
    QString bare = QStringLiteral("note.txt");
    QCOMPARE(search.ResolveProgramArgument(bare), QStringLiteral("/opt/own/note.txt"));
    QCOMPARE(search.FindProgram(QStringLiteral("C:\\a\\b.exe")), QStringLiteral("/opt/own/b.exe"));
    QCOMPARE(search.FileName(QStringLiteral("/usr/bin/browser")), QStringLiteral("browser"));
  }
};

}  // namespace snipdeck

QTEST_APPLESS_MAIN(snipdeck::ProgramSearchTest)
#include "program_search_test.moc"

#include "navigation/external_programs.h"

#include <QDir>
#include <QTest>

#include "fakes/fake_file_lookup.h"
#include "fakes/fake_shell.h"
#include "fakes/scripted_messages.h"

namespace snipdeck {

class ExternalProgramsTest : public QObject {
  Q_OBJECT

 private:
  static constexpr char kTrawler[] = "C:\\Drive_G\\Quillhome\\QM_FileDesk\\QM_Pocket\\QM_Pocket.exe";
  static constexpr char kJotter[] = "C:\\Drive_G\\Quillhome\\QM_Scribe\\QM_Scribe.exe";
  static constexpr WindowHandle kMainWindow = 77;

  struct Stage {
    FakeFileLookup files;
    FakeShell shell;
    FakeWindowList windows;
    ScriptedMessages messages;
    Settings settings;
    ExternalPrograms programs{
        {files, shell, windows, messages}, ProgramSearch(files, QStringLiteral("P:\\Own"), u'\\'), settings};

    Stage() {
      files.files = {QString::fromLatin1(kTrawler), QString::fromLatin1(kJotter)};
      settings.storageFolder = QStringLiteral("G:\\Boxes");
      programs.SetMainWindow(kMainWindow);
    }
    QString Started(const char* program, const char* argument) {
      return QStringLiteral("start [%1] [%2]").arg(QString::fromLatin1(program), QString::fromLatin1(argument));
    }
  };

 private slots:
  void TrawlerGetsTheFolder_data() {
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("argument");
    QTest::newRow("plain") << "G:\\Boxes"
                           << "G:\\Boxes";
    QTest::newRow("with a blank") << "G:\\My boxes"
                                  << "\"G:\\My boxes\"";
    QTest::newRow("in quotes") << "\"G:\\My boxes\""
                               << "\"G:\\My boxes\"";
    QTest::newRow("in quotes without need") << "\"G:\\Boxes\""
                                            << "G:\\Boxes";
    QTest::newRow("on a mirror") << "D:\\Drive_G\\Texts"
                                 << "G:\\Texts";
    QTest::newRow("what a shell would run") << "G:\\$(reboot);a"
                                            << "G:\\$(reboot);a";
  }
  void TrawlerGetsTheFolder() {
    QFETCH(QString, folder);
    QFETCH(QString, argument);
    Stage stage;
    stage.settings.storageFolder = folder;
    stage.programs.ShowStorageInTrawler();
    QCOMPARE(stage.shell.calls, QStringList(stage.Started(kTrawler, qPrintable(argument))));
  }

  void TrawlerWithAFolderNeverLooksForARunningCopy() {
    Stage stage;
    stage.windows.windows = {{.handle = 5, .title = QStringLiteral("QM_Pocket"), .isVisible = true}};
    stage.programs.ShowStorageInTrawler();
    stage.programs.ShowStorageInTrawler();
    QCOMPARE(stage.shell.calls.size(), 2);
    QVERIFY(stage.windows.raised.empty());
  }

  void RunningJotterComesForward() {
    Stage stage;
    stage.windows.windows = {{.handle = 4, .title = QStringLiteral("QM_Scribe.exe"), .isVisible = true},
                             {.handle = 5, .title = QStringLiteral("qm_scribe"), .isVisible = true}};
    stage.programs.StartJotter();
    QCOMPARE(stage.shell.calls, QStringList(stage.Started(kJotter, "")));
    stage.windows.windows.push_back({.handle = 6, .title = QStringLiteral("QM_Scribe"), .isVisible = true});
    stage.windows.windows.push_back({.handle = 7, .title = QStringLiteral("QM_Scribe"), .isVisible = true});
    stage.programs.StartJotter();
    QCOMPARE(stage.shell.calls.size(), 1);
    QCOMPARE(stage.windows.raised, std::vector<WindowHandle>{6});
  }

  void MissingProgramIsToldWithTheLastPlace() {
    Stage stage;
    stage.files.files.clear();
    stage.messages.Expect({.text = QStringLiteral("Cannot locate the following program/file:\r\n\r\n"
                                                  "P:\\Own\\QM_Pocket.exe\r\n\r\n"
                                                  "Check the path before the name and see whether\r\n"
                                                  "the program/file exists on your hard disk.\r\n"
                                                  "(the error may be due to an unavailable\r\n"
                                                  "minor option of the Quillmark suite)"),
                           .icon = MessageIcon::Critical,
                           .caption = QDir::currentPath()},
                          MessageAnswer::Ok);
    stage.programs.ShowStorageInTrawler();
    QVERIFY(stage.shell.calls.isEmpty());
  }

  void Browser() {
    Stage stage;
    stage.settings.customBrowser = QStringLiteral("C:\\Program Files\\browser.exe");
    stage.files.files.insert(stage.settings.customBrowser);
    stage.programs.StartBrowser();
    stage.settings.customBrowser.clear();
    stage.programs.StartBrowser();
    QCOMPARE(stage.shell.calls,
             QStringList({stage.Started("C:\\Program Files\\browser.exe", ""), stage.Started("", "")}));
  }

  void FileManagerOpensOnTheStorageOrTheCurrentFolder() {
    Stage stage;
    stage.programs.ExploreStorage();
    stage.programs.ExploreCurrent();
    stage.programs.ShowCurrentInTrawler();
    QCOMPARE(stage.shell.calls,
             QStringList({QStringLiteral("explore [G:\\Boxes] for 77"), QStringLiteral("explore [C:\\Work] for 77"),
                          stage.Started(kTrawler, "C:\\Work")}));
    QString folder;
    stage.programs.ExploreFolder(folder, 3);
    QCOMPARE(folder, QStringLiteral("C:\\Work"));
    QCOMPARE(stage.shell.calls.last(), QStringLiteral("explore [C:\\Work] for 3"));
  }

  void MainWindowsCommandsKeepTheCurrentDirectory() {
    Stage stage;
    stage.shell.meanwhile = [&stage] { stage.files.directory = QStringLiteral("D:\\Elsewhere"); };
    stage.programs.ShowStorageInTrawler();
    QCOMPARE(stage.files.directory, QStringLiteral("C:\\Work"));
    stage.programs.ExploreStorage();
    QCOMPARE(stage.files.directory, QStringLiteral("C:\\Work"));
    QCOMPARE(stage.shell.calls.size(), 2);
  }

  void WindowListKeepsWhatAUserCallsAWindow() {
    FakeWindowList desktop;
    desktop.windows = {
        {.handle = 1, .title = QStringLiteral("plain"), .isVisible = true},
        {.handle = 2, .title = QStringLiteral("hidden")},
        {.handle = 3, .title = QStringLiteral("child"), .isVisible = true, .hasParent = true},
        {.handle = 4, .title = QStringLiteral("palette"), .isVisible = true, .isToolWindow = true},
        {.handle = 5, .title = QStringLiteral("dialog"), .isVisible = true, .hasOwner = true},
        {.handle = 6,
         .title = QStringLiteral("owned application"),
         .isVisible = true,
         .hasOwner = true,
         .isToolWindow = true,
         .isApplicationWindow = true},
        {.handle = 7, .title = QString(), .isVisible = true},
        {.handle = kMainWindow, .title = QStringLiteral("own"), .isVisible = true},
    };
    WindowTitles titles{{QStringLiteral("old")}, {QStringLiteral("99")}};
    QCOMPARE(FillWindowList(desktop, kMainWindow, titles), 2);
    QCOMPARE(titles.lstWinNames, QStringList({QStringLiteral("plain"), QStringLiteral("owned application")}));
    QCOMPARE(titles.lstWinHandles, QStringList({QStringLiteral("1"), QStringLiteral("6")}));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ExternalProgramsTest)
#include "external_programs_test.moc"

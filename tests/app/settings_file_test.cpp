#include "app/settings_file.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "app/settings_number.h"
#include "app/settings_table.h"
#include "fakes/scripted_messages.h"
#include "platform/whole_file.h"

namespace snipdeck {

namespace {

/// Gives every value something that no other one has.
struct Filler {
  Settings& settings;
  int line;

  void operator()(std::int16_t Settings::*value) const { settings.*value = static_cast<std::int16_t>(-300 * line); }
  void operator()(std::int32_t Settings::*value) const { settings.*value = 1'000'000'007 - line; }
  void operator()(QString Settings::*value) const { settings.*value = QString("/Ordner %1/ä € 漢字").arg(line); }
};

Settings FilledSettings() {
  Settings settings;
  for (const SettingLine& line : kSettingLines) std::visit(Filler{settings, line.line}, line.value);
  return settings;
}

/// A file whose line `line` is `text` and whose other lines are empty.
QByteArray FileWithLine(int line, const QByteArray& text) {
  return QByteArray("\r\n").repeated(line - 1) + text + "\r\n";
}

}  // namespace

class SettingsFileTest : public QObject {
  Q_OBJECT

 private slots:
  void Numbers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    const std::pair<const char*, int> rows[] = {
        {"", 0},
        {"  1200", 1200},
        {"\t3", 3},
        {"1 2\t0\n0", 1200},
        {"- 5", -5},
        {"+7", 7},
        {"12abc", 12},
        {"abc", 0},
        {"--5", 0},
        {"5-", 5},
        {"2.5", 2},
        {"3.5", 4},
        {"-2.5", -2},
        {"-3.5", -4},
        {".5", 0},
        {"-.6", -1},
        {"0.5000000000000000000001", 1},
        {"1.2.9", 1},
        {".", 0},
        {"1e3", 1},
        {"1,5", 1},
        {"32767.4", 32767},
        {"-32768.5", -32768},
        {"0x10", 0},
    };
    for (const auto& [text, expected] : rows) QTest::newRow(text) << QString::fromUtf8(text) << expected;
  }
  void Numbers() {
    QFETCH(QString, text);
    QFETCH(int, expected);
    const auto number = LeadingNumber<std::int16_t>(text);
    QVERIFY(number);
    QCOMPARE(int{*number}, expected);
  }

  void ANumberOutOfRangeLeavesItsValue() {
    Settings settings;
    settings.kept5 = 17;
    settings.mainTop = 18;
    for (const char* text : {"32768", "-32769", "32767.5", "2147483648", "99999999999999999999"}) {
      ParseSettings(FileWithLine(5, text), settings);
      QCOMPARE(int{settings.kept5}, 17);
    }
    // The lines before it were empty, which is the number 0.
    QCOMPARE(settings.mainTop, 0);
    settings.mainTop = 18;
    for (const char* text : {"2147483648", "-2147483649", "9223372036854775808"}) {
      ParseSettings(text, settings);
      QCOMPARE(settings.mainTop, 18);
    }
    ParseSettings("-2147483648", settings);
    QCOMPARE(settings.mainTop, std::numeric_limits<std::int32_t>::min());
  }

  void EveryValueSurvivesARoundTrip() {
    const Settings settings = FilledSettings();
    const QByteArray bytes = FormatSettings(settings);
    QVERIFY(bytes.endsWith("\r\n") && !bytes.contains("\r\n\r\n"));
    QCOMPARE(bytes.count("\r\n"), 42);
    QCOMPARE(bytes.count('\n'), 42);
    Settings back;
    ParseSettings(bytes, back);
    QVERIFY(back == settings);
  }

  void EveryLineIsWhereItsReadersExpectIt() {
    const QList<QByteArray> lines = FormatSettings(FilledSettings()).split('\n');
    const QList<int> texts = {6, 15, 19, 24, 27, 34};
    const QList<int> small = {5, 16, 17, 20, 21, 22, 23, 25, 26, 32, 35, 36, 37, 38};
    for (int line = 1; line <= 42; ++line) {
      const QString expected = texts.contains(line)   ? QString("/Ordner %1/ä € 漢字\r").arg(line)
                               : small.contains(line) ? QString("%1\r").arg(-300 * line)
                                                      : QString("%1\r").arg(1'000'000'007 - line);
      QCOMPARE(QString::fromUtf8(lines[line - 1]), expected);
    }
  }

  void StrangeTextsKeepTheLinesApart() {
    Settings settings;
    settings.storageFolder = "/a\rb\nc";
    settings.kept7 = 7;
    settings.contentsFileName = QString::fromUtf16(u"\x01\U0001F600 \"'%1");
    Settings back;
    ParseSettings(FormatSettings(settings), back);
    settings.storageFolder = "/a b\nc";
    QVERIFY(back == settings);
  }

  void ShortLongAndForeignFilesAreRead() {
    Settings settings;
    settings.contentsFileName = "kept.rtf";
    ParseSettings("  1200\r\n300\r\n9000\r\n8000\r\n", settings);
    QCOMPARE(settings.mainTop, 1200);
    QCOMPARE(settings.mainHeight, 8000);
    QCOMPARE(settings.contentsFileName, QString("kept.rtf"));
    ParseSettings("1\n2\n3\n4", settings);
    QCOMPARE(settings.mainHeight, 4);
    ParseSettings(FormatSettings(FilledSettings()) + "line 43\r\nline 44", settings);
    QVERIFY(settings == FilledSettings());
    // Written where the ANSI code page is 1252.
    ParseSettings(FileWithLine(6, "C:\\B\xFCro \x80"), settings);
    QCOMPARE(settings.storageFolder, QString("C:\\Büro €"));
  }

  void WhateverTheFileHoldsItIsRead() {
    QRandomGenerator random(4711);
    for (int round = 0; round < 200; ++round) {
      QByteArray bytes(static_cast<int>(random.bounded(500)), '\0');
      for (char& c : bytes) c = "0123456789-. \r\n\xFF\0a"[random.bounded(18)];
      Settings settings;
      ParseSettings(bytes, settings);
      Settings back;
      ParseSettings(FormatSettings(settings), back);
      QVERIFY2(back == settings, bytes.toHex().constData());
    }
  }

  void TheFileIsReplacedOrReported() {
    QTemporaryDir folder;
    const QString path = folder.filePath("QM_Snipdeck.ini");
    ScriptedMessages messages;
    Settings settings = FilledSettings();
    SettingsFile(path, settings, messages).WriteSettings();
    Settings back;
    SettingsFile(path, back, messages).ReadSettings();
    QVERIFY(back == settings);

    const QString nowhere = folder.filePath("no such folder/QM_Snipdeck.ini");
    SettingsFile file(nowhere, settings, messages);
    const Outcome refused = file.TryToWrite();
    messages.Expect({.text = "Cannot save this file :\r\n\r\n" + nowhere +
                             "\r\n\r\nThe error was probably triggered for the following reason : \r\n\r\n\"" +
                             refused.Error().text + "\"\r\n",
                     .icon = MessageIcon::Critical},
                    MessageAnswer::Ok);
    file.WriteSettings();
    file.ReadSettings();
    SettingsFile(QString(), settings, messages).ReadSettings();
    QVERIFY(settings == FilledSettings());
  }

  // SNIPDECK_KILLS says how often.
  void AWriterThatIsKilledLeavesAWholeFile() {
    QTemporaryDir folder;
    ScriptedMessages messages;
    Settings one = FilledSettings();
    Settings other;
    const SettingsFile file(folder.filePath("QM_Snipdeck.ini"), one, messages);
    const SettingsFile otherFile(folder.filePath("QM_Snipdeck.ini"), other, messages);
    QVERIFY(file.TryToWrite());
    const int kills = qEnvironmentVariableIntValue("SNIPDECK_KILLS");
    for (int kill = 0; kill < (kills > 0 ? kills : 20); ++kill) {
      const pid_t writer = fork();
      while (writer == 0) {
        otherFile.TryToWrite();
        file.TryToWrite();
      }
      QTest::qSleep(1 + static_cast<int>(QRandomGenerator::global()->bounded(15)));
      ::kill(writer, SIGKILL);
      waitpid(writer, nullptr, 0);
      const QByteArray bytes = ReadWholeFile(folder.filePath("QM_Snipdeck.ini")).Value();
      QVERIFY2(bytes == FormatSettings(one) || bytes == FormatSettings(other), bytes.constData());
    }
  }

  void AFirstStartBeginsWithTheInstalledSettings() {
    QTemporaryDir folder;
    const QString path = folder.filePath("QM_Snipdeck.ini");
    CopyFirstSettings(path, folder.filePath("missing"));
    QVERIFY(!QFile::exists(path));
    CopyFirstSettings(path, SNIPDECK_FIRST_SETTINGS);
    Settings first;
    ScriptedMessages messages;
    SettingsFile(path, first, messages).ReadSettings();
    QCOMPARE(first.mainWidth, 1000 * 15);
    QCOMPARE(first.mainHeight, 750 * 15);
    QCOMPARE(first.buttonColour, -1);
    QCOMPARE(int{first.sidebarShown}, 1);
    QCOMPARE(int{first.sidebarWidthStep}, 3);
    QVERIFY(!first.sidebarFontName.isEmpty() && first.sidebarFontSize >= 9);
    QCOMPARE(int{first.useControlFonts}, 0);
    // It is a settings file like any other, in its very form.
    QCOMPARE(FormatSettings(first), ReadWholeFile(path).Value());

    QVERIFY(WriteWholeFile(path, "1\r\n"));
    CopyFirstSettings(path, SNIPDECK_FIRST_SETTINGS);
    QCOMPARE(ReadWholeFile(path).Value(), QByteArray("1\r\n"));
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::SettingsFileTest)
#include "settings_file_test.moc"

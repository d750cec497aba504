#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "dialogs/frm_my_msg_box.h"
#include "dialogs/frm_saving.h"
#include "dialogs/frm_txt_info.h"
#include "fakes/fake_clipboard_writer.h"
#include "fakes/fake_file_lookup.h"
#include "fakes/fake_shell.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"

namespace snipdeck {

namespace {

const QDateTime kNow(QDate(2026, 3, 9), QTime(17, 4, 5));

struct Stage {
  QTemporaryDir folder;
  QWidget mainWindow;
  Settings settings;
  ScriptedMessages messages;
  ScriptedDialogs dialogs;
  FakeClipboardWriter clipboard;
  FakeFileLookup files;
  FakeShell shell;
  FakeWindowList windows;
  ExternalPrograms programs{{files, shell, windows, messages}, ProgramSearch(files, "P:\\Own", u'\\'), settings};
  FontsAndColours looks{mainWindow, settings, dialogs, messages};

  ClosingServices Services() { return {settings, messages, clipboard, shell, programs, looks}; }
  QString MakeFile(const char* name, int size) {
    QFile file(folder.filePath(QString::fromLatin1(name)));
    if (file.open(QIODevice::WriteOnly)) file.write(QByteArray(size, 'x'));
    return file.fileName();
  }
};

void Click(QWidget& window, const char* button) {
  window.findChild<QPushButton*>(QString::fromLatin1(button))->click();
}

QString LabelText(QWidget& window, const char* name) {
  return window.findChild<QLabel*>(QString::fromLatin1(name))->text();
}

}  // namespace

class ClosingQuestionTest : public QObject {
  Q_OBJECT

 private slots:
  void DetailsFollowTheLocale_data() {
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::newRow("British") << QLocale("en_GB") << "1,234,567"
                             << "09/03/2026"
                             << "17:04:05";
    QTest::newRow("German") << QLocale("de_DE") << "1.234.567"
                            << "09.03.2026"
                            << "17:04:05";
    QTest::newRow("programs") << QLocale::c() << "1,234,567"
                              << "09/03/2026"
                              << "17:04:05";
  }

  void DetailsFollowTheLocale() {
    QFETCH(QLocale, locale);
    Stage stage;
    const QString path = stage.MakeFile("letter.rtf", 1234567);
    const FileDetails details = FileDetails::Of(path, kNow, locale);
    QCOMPARE(details.name, QString("letter.rtf"));
    QCOMPARE(details.folder, stage.folder.path());
    QCOMPARE(details.Path(), path);
    QTEST(details.size, "size");
    QTEST(details.nowDate, "date");
    QTEST(details.nowTime, "time");
    QCOMPARE(details.date, locale.toString(QFileInfo(path).lastModified(), QLocale::ShortFormat));
    QCOMPARE(FileDetails::Of(stage.MakeFile("empty.txt", 0), kNow, locale).size, QString());
    const FileDetails unsaved = FileDetails::Of("Untitled.rtf", kNow, locale);
    QCOMPARE(unsaved.name + "|" + unsaved.folder + "|" + unsaved.size + "|" + unsaved.date,
             QString("Untitled.rtf||0|(not yet saved!)"));
  }

  void EveryChoiceHasItsDecision() {
    const QList<QPair<const char*, DocumentDecision>> choices = {{"cmdYes", DocumentDecision::SaveAs},
                                                                 {"cmdNo", DocumentDecision::Discard},
                                                                 {"cmdCancel", DocumentDecision::Cancel},
                                                                 {"cmdSaveFile", DocumentDecision::SaveDirectly}};
    Stage stage;
    for (const auto& [button, decision] : choices) {
      frmMyMsgBox box(stage.Services(), "Untitled.rtf", nullptr);
      box.show();
      Click(box, button);
      QVERIFY(!box.isVisible());
      QCOMPARE(box.Result(), decision);
    }
    frmMyMsgBox box(stage.Services(), "Untitled.rtf", nullptr);
    box.show();
    QCOMPARE(box.focusWidget()->objectName(), QString("cmdYes"));
    QTest::keyClick(box.focusWidget(), Qt::Key_Escape);
    QVERIFY(!box.isVisible());
    QCOMPARE(box.Result(), DocumentDecision::Cancel);
  }

  void NoCanAskOnceMore() {
    Stage stage;
    frmMyMsgBox box(stage.Services(), "Untitled.rtf", nullptr);
    box.show();
    box.findChild<QCheckBox*>("chkDecisionConfirmNoSave")->click();
    QCOMPARE(int(stage.settings.messageBoxDecision), 1);
    const Message question{.text = "Unload file without saving?",
                           .icon = MessageIcon::Question,
                           .buttons = MessageButtons::YesNo,
                           .defaultButton = MessageAnswer::No};
    stage.messages.Expect(question, MessageAnswer::No);
    Click(box, "cmdNo");
    QVERIFY(box.isVisible());
    stage.messages.Expect(question, MessageAnswer::Yes);
    Click(box, "cmdNo");
    QVERIFY(!box.isVisible());
    QCOMPARE(box.Result(), DocumentDecision::Discard);
  }

  void TheWindowKeepsItsHeightAndItsLeastWidth() {
    Stage stage;
    frmMyMsgBox box(stage.Services(), stage.MakeFile("letter.rtf", 5), nullptr);
    box.show();
    QCoreApplication::processEvents();
    const QSize frame = box.frameGeometry().size() - box.size();
    QCOMPARE(box.frameGeometry().height(), 280);
    QVERIFY(LabelText(box, "lblFileDate").contains("     [ now: "));
    for (const int width : {642, 900}) {
      box.resize(width - frame.width(), 500);
      QCoreApplication::processEvents();
      QCOMPARE(box.frameGeometry().size(), QSize(width, 280));
      for (const char* name : {"txtFileName", "txtFilePath"}) {
        auto* field = box.findChild<QLineEdit*>(name);
        QCOMPARE(field->mapTo(&box, QPoint(field->width(), 0)).x(), box.width() - 16);
      }
    }
    box.resize(300, 100);
    QCOMPARE(box.frameGeometry().size(), QSize(642, 280));
    box.resize(800 - frame.width(), 280);
    box.close();
    QCOMPARE(stage.settings.messageBoxWidth, 12000);
  }

  void OtherProgramsGetTheFolder() {
    Stage stage;
    frmMyMsgBox box(stage.Services(), stage.MakeFile("letter.rtf", 5), nullptr);
    Click(box, "cmdExplorer");
    QVERIFY(stage.shell.calls.last().startsWith("explore [" + stage.folder.path() + "] for "));
  }

  void FileInformationIsCopied() {
    Stage stage;
    FileDetails details = FileDetails::Of("Untitled.rtf", kNow, QLocale("en_GB"));
    frmTxtInfo info({stage.messages, stage.clipboard, stage.shell, stage.looks}, details, nullptr);
    QCOMPARE(LabelText(info, "Label2"), QString("(not yet saved!)"));
    QCOMPARE(LabelText(info, "Label6"), QString("09/03/2026"));
    stage.messages.Expect("You can retrieve this text by pressing Ctrl-V or using the \"Paste\" option.");
    Click(info, "cmdCopyToClipboard");
    QCOMPARE(stage.clipboard.calls, QStringList({"put"}));
    QCOMPARE(stage.clipboard.offer.text,
             QString("\r\nCurrent File: Untitled.rtf\r\nPath: \r\nSize: 0\r\nSaved: (not yet saved!)\r\n\r\n"
                     "Time: 17:04:05\r\nDate: 09/03/2026\r\n"));
    QVERIFY(stage.clipboard.offer.rtf.isEmpty());
    QCOMPARE(stage.messages.Beeps(), 1);
  }

  void MoreInfoAsksTheDesktopAndFallsBackToASheet() {
    Stage stage;
    const QString path = stage.MakeFile("letter.rtf", 5);
    frmTxtInfo info({stage.messages, stage.clipboard, stage.shell, stage.looks}, FileDetails::Of(path, kNow, QLocale()),
                    nullptr);
    info.show();
    Click(info, "cmdMoreInfo");
    QCOMPARE(stage.shell.calls, QStringList("properties [" + path + "]"));
    QVERIFY(info.findChild<QDialog*>("PropertiesSheet"));
  }

  void TheNoticeIsThereWhileTheFileIsWritten() {
    SavingWindow notice;
    notice.Show();
    notice.Show();
    int shown = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->windowTitle() != "Saving current text file to disk ...") continue;
      ++shown;
      QVERIFY(window->isVisible());
    }
    QCOMPARE(shown, 1);
    notice.Close();
    for (QWidget* window : QApplication::topLevelWidgets()) QVERIFY(window->objectName() != "frmSaving");
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ClosingQuestionTest)
#include "closing_question_test.moc"

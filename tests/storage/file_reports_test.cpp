#include "storage/file_reports.h"

#include <QDir>
#include <QTest>

#include "fakes/scripted_messages.h"
#include "storage/busy_pointer.h"

namespace snipdeck {

class FileReportsTest : public QObject {
  Q_OBJECT

  static Message NotFound(const QString& name) {
    return {.text = "Cannot locate the following program/file:\r\n\r\n" + name +
                    "\r\n\r\nCheck the path before the name and see whether\r\n"
                    "the program/file exists on your hard disk.\r\n"
                    "(the error may be due to an unavailable\r\nminor option of the Quillmark suite)",
            .icon = MessageIcon::Critical,
            .caption = QDir::currentPath()};
  }
  static Message Error(const QString& name, const QString& reason) {
    return {.text = "Cannot save this file :\r\n\r\n" + name +
                    "\r\n\r\nThe error was probably triggered for the following reason : \r\n\r\n" + reason + "\r\n",
            .icon = MessageIcon::Critical};
  }

 private slots:
  void AMissingFileIsNamed() {
    ScriptedMessages messages;
    FileReports reports(messages);
    messages.Expect(NotFound("/tmp/some file.rtf"), MessageAnswer::Ok);
    reports.ShowFileNotFound("/tmp/some file.rtf");
    messages.Expect(NotFound("( Filename empty! )"), MessageAnswer::Ok);
    reports.ShowFileNotFound(QString());
    QCOMPARE(messages.Beeps(), 0);
  }

  void AFailedWriteTellsItsReason() {
    ScriptedMessages messages;
    FileReports reports(messages);
    messages.Expect(Error("/tmp/x.rtf", "\"Permission denied\""), MessageAnswer::Ok);
    reports.ShowFileError("/tmp/x.rtf", "Permission denied");
    messages.Expect(Error("( no name specified or name is empty ! )", "(unknown)"), MessageAnswer::Ok);
    reports.ShowFileError("  ", QString());
    QCOMPARE(messages.Beeps(), 2);
  }

  void TheBusyPointerEndsWithTheReport() {
    ScriptedMessages messages;
    const BusyPointer busy;
    const BusyPointer again;
    QVERIFY(QGuiApplication::overrideCursor());
    messages.Expect(NotFound("x"), MessageAnswer::Ok);
    FileReports(messages).ShowFileNotFound("x");
    QVERIFY(!QGuiApplication::overrideCursor());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::FileReportsTest)
#include "file_reports_test.moc"

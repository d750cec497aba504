#include <QDir>
#include <QTest>
#include <QTextFrame>

#include "app/main_window_stage.h"
#include "platform/whole_file.h"

namespace snipdeck {

namespace {

const QString kSeparator = "+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+-+";

Message Question(const QString& text, MessageButtons buttons = MessageButtons::YesNo) {
  return {.text = text, .icon = MessageIcon::Question, .buttons = buttons};
}
const Message kLoadNonetheless = Question("Text has been altered. Load file from disk nonetheless?\r\n");

struct Stage : MainWindowStage {
  BoxSet& boxes = window.Boxes();
  RichTextControl& large = boxes.TXTextControl1();
  RichTextControl& cumulative = boxes.TXTextControl2();

  QString Path(const QString& name) const { return folder.filePath(name); }
  QString File(const QString& name, const QByteArray& contents) const {
    const QString path = Path(name);
    return WriteWholeFile(path, contents) ? path : QString();
  }
  static QByteArray Bytes(const QString& path) {
    const auto contents = ReadWholeFile(path);
    return contents ? contents.Value() : QByteArray();
  }
  static FileRequest OpenRequest(const char* title, const QString& name) {
    return {.title = title, .fileName = name, .filters = RtfAndAllFiles(), .defaultExtension = "rtf"};
  }
  void ExpectSave(const char* title, const QString& proposed, const QString& answer) {
    dialogs.ExpectSave({.title = title,
                        .fileName = proposed,
                        .filters = {{"RTF files (*.rtf)", "*.rtf"},
                                    {"HTML files (*.html)", "*.html;*.htm"},
                                    {"Word documents (*.docx)", "*.docx"},
                                    {"PDF files (*.pdf)", "*.pdf"},
                                    {"Text files (*.txt)", "*.txt"},
                                    {"All files (*.*)", "*.*"}},
                        .defaultExtension = "rtf"},
                       answer);
  }
  void EnlargeBoxOne(const QByteArray& rtf) {
    boxes.Box(1).SetSelRtf(rtf);
    boxes.OpenBoxInLargeView(1);
  }
};

}  // namespace

class FileCommandsTest : public QObject {
  Q_OBJECT

 private slots:
  void BoxesComeBackFromTheirFiles() {
    Stage stage;
    const QString folder = stage.Path("stored");
    QVERIFY(QDir().mkpath(folder));
    stage.dialogs.ExpectFolder("Set folder for saving text boxes", stage.folder.path(), folder);
    stage.window.mnuFolder_Click();
    QCOMPARE(stage.window.windowTitle(), folder);
    stage.dialogs.ExpectFolder("Set folder for saving text boxes", folder, "");
    stage.window.mnuFolder_Click();
    QCOMPARE(stage.window.windowTitle(), folder);

    stage.boxes.Box(2).SetSelRtf("{\\rtf1 some {\\b bold} text}");
    stage.boxes.BoxesAltered = true;
    stage.messages.Expect("Text boxes saved to disk in this folder:\r\n\r\n" + folder);
    stage.window.mnuSaveTextBoxes_Click();
    for (int n = 1; n <= kBoxCount; ++n) stage.boxes.Box(n).SetText("overwritten");
    stage.File("stored/QM_Snipdeck_Text_03.rtf", "{\\rtf1\\paperw9000 page}");
    stage.window.mnuLoadBoxes_Click();
    QCOMPARE(stage.boxes.Box(2).Text(), QString("some bold text"));
    stage.boxes.Box(2).SetSelStart(6);
    stage.boxes.Box(2).SetSelLength(2);
    QCOMPARE(stage.boxes.Box(2).Bold(), -1);
    QCOMPARE(stage.boxes.Box(3).PageWidth(), 9000);
    QCOMPARE(stage.boxes.Box(3).PageMargins(0), 240);
    QVERIFY(stage.boxes.Box(12).Text().isEmpty());
    QVERIFY(!stage.boxes.Box(2).document()->isUndoAvailable());

    stage.window.mnuCumulative_Click();
    for (int k = 0; k < 3; ++k)
      stage.messages.Expect("Exit full screen mode [F5] and return to text boxes for this command.");
    stage.window.mnuSaveTextBoxes_Click();
    stage.window.mnuLoadBoxes_Click();
    stage.window.mnuFolder_Click();
  }

  void AFileGoesIntoTheCumulativeText() {
    Stage stage;
    stage.window.mnuIntoClipboard_Click();  // not shown: nothing happens
    stage.window.mnuCumulative_Click();
    const QString rtf = stage.File("a.rtf", "{\\rtf1\\paperw9000\\margl300 some {\\b bold} text}");
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Load file into text", "Snipdeck_Contents.rtf"), rtf);
    stage.window.mnuIntoClipboard_Click();
    QCOMPARE(stage.cumulative.Text(), QString("some bold text"));
    QCOMPARE(stage.cumulative.SelStart(), 14);
    QCOMPARE(stage.cumulative.PageWidth(), 9000);
    QCOMPARE(stage.cumulative.PageMargins(0), 300);
    QVERIFY(stage.cumulative.hasFocus() || stage.window.focusWidget() == &stage.cumulative);

    // A capture is no change by the user; typing is. A cancelled dialog ends the command.
    stage.clipboard.HoldText("captured");
    stage.window.ctlClipboard1_Changed();
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Load file into text", rtf), "");
    stage.window.mnuIntoClipboard_Click();
    QVERIFY(stage.cumulative.Text().endsWith("captured\n"));
    QTest::keyClicks(&stage.cumulative, "x");
    stage.messages.Expect(kLoadNonetheless, MessageAnswer::No);
    stage.window.mnuIntoClipboard_Click();

    // The ending says the format: a server page is plain text here.
    const QString page = stage.File("b.asp", "<b>x</b>");
    stage.messages.Expect(kLoadNonetheless, MessageAnswer::Yes);
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Load file into text", rtf), page);
    stage.window.mnuIntoClipboard_Click();
    QCOMPARE(stage.cumulative.Text(), QString("<b>x</b>"));
    // An empty cumulative text is filled by the file when it is shown.
    stage.window.mnuCumulative_Click();
    stage.cumulative.SetText(QString());
    stage.window.mnuCumulative_Click();
    QCOMPARE(stage.cumulative.Text(), QString("<b>x</b>"));
  }

  void TextsAreSavedUnderNames() {
    Stage stage;
    stage.messages.Expect("Only possible in full-screen mode; toggle with F5.");
    stage.window.mnuSaveAs_Click();
    stage.messages.Expect("Cumulative clipboard window not visible; toggle with Ctrl-Y.");
    stage.window.mnuSaveText_Click();

    stage.EnlargeBoxOne("{\\rtf1 some {\\b bold} text}");
    stage.ExpectSave("Specify a name for file", "Snipdeck_Contents.rtf", stage.Path("a.html"));
    stage.window.mnuSaveAs_Click();
    QVERIFY(Stage::Bytes(stage.Path("a.html")).contains("<html"));
    QVERIFY(!stage.large.Modified());
    // A save that fails keeps the old file, says so, and leaves the text changed.
    stage.large.SetSelText("more ");
    QVERIFY(QDir().mkdir(stage.Path("b.rtf")));
    stage.ExpectSave("Specify a name for file", stage.Path("a.html"), stage.Path("b.rtf"));
    const QString reason = WriteWholeFile(stage.Path("b.rtf"), "x").Error().text;
    stage.messages.Expect(
        {.text = "Cannot save this file:\r\n\r\n" + stage.Path("b.rtf") + "\r\n\r\n" + reason,
         .icon = MessageIcon::Exclamation},
        MessageAnswer::Ok);
    stage.window.mnuSaveAs_Click();
    QVERIFY(stage.large.Modified());

    stage.window.mnuViewBoxLarge_Click();
    stage.window.mnuCumulative_Click();
    stage.cumulative.SetText("collected");
    stage.cumulative.SetPageWidth(7000);
    stage.ExpectSave("Save cumulative clipboard text to file", "Snipdeck_CumulativeContents.rtf", stage.Path("c.rtf"));
    stage.window.mnuSaveText_Click();
    QVERIFY(Stage::Bytes(stage.Path("c.rtf")).contains("\\paperw7000"));
    stage.ExpectSave("Save cumulative clipboard text to file", stage.Path("c.rtf"), "");
    stage.window.mnuSaveText_Click();
  }

  void CopiesWaitWhileAFileIsReadOrWritten() {
    Stage stage;
    QStringList works;
    stage.longWork.meanwhile = [&] { works.append(stage.watch.isHeld ? "held" : "not held"); };
    stage.File("QM_Snipdeck_Text_07.rtf", "{\\rtf1 seven}");
    stage.window.mnuLoadBoxes_Click();
    QCOMPARE(stage.boxes.Box(7).Text(), QString("seven"));
    stage.window.mnuCumulative_Click();
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Load file into text", "Snipdeck_Contents.rtf"),
                             stage.File("a.txt", "loaded"));
    stage.window.mnuIntoClipboard_Click();
    stage.ExpectSave("Save cumulative clipboard text to file", "Snipdeck_CumulativeContents.rtf", stage.Path("c.rtf"));
    stage.window.mnuSaveText_Click();
    QCOMPARE(works, QStringList({"held", "held", "held"}));
    QVERIFY(!stage.watch.isHeld);
  }

  void TextIsAppended_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("selected");
    QTest::addColumn<MessageAnswer>("answer");
    QTest::addColumn<QString>("after");
    const QString end = "old\n\n" + kSeparator + "\n\n";
    QTest::newRow("to the end") << QByteArray("old") << "a.txt" << 0 << MessageAnswer::No << end + "some bold text\n";
    QTest::newRow("selection") << QByteArray("old") << "a.txt" << 4 << MessageAnswer::No << end + "some\n";
    QTest::newRow("to the start") << QByteArray("old") << "a.txt" << 0 << MessageAnswer::Yes << "\nsome bold text\nold";
    QTest::newRow("cancelled") << QByteArray("old") << "a.txt" << 0 << MessageAnswer::Cancel << "old";
    QTest::newRow("style sheet") << QByteArray("old") << "a.css" << 0 << MessageAnswer::No << end + "some bold text\n";
    QTest::newRow("RTF") << QByteArray("{\\rtf1 {\\i old}}") << "a.rtf" << 0 << MessageAnswer::No
                         << end + "some bold text\n";
  }
  void TextIsAppended() {
    QFETCH(QByteArray, file);
    QFETCH(QString, name);
    QFETCH(int, selected);
    QFETCH(MessageAnswer, answer);
    Stage stage;
    stage.EnlargeBoxOne("{\\rtf1 some {\\b bold} text}");
    stage.large.SetSelStart(0);
    stage.large.SetSelLength(selected);
    const QString path = stage.File(name, file);
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Specify file to append text to", "Snipdeck_Contents.rtf"), path);
    stage.messages.Expect(Question(QString("Append %1 to start of this file (otherwise to end) ?\r\n\r\n%2")
                                       .arg(selected ? "selection" : "text", path),
                                   MessageButtons::YesNoCancel),
                          answer);
    stage.window.mnuAppend_Click();
    const bool isRtf = name.endsWith("rtf");
    const QByteArray written = Stage::Bytes(path);
    const RichText text = isRtf ? RichText::FromRtf(written) : RichText::FromPlainText(QString::fromUtf8(written));
    QTEST(text.PlainText(), "after");
    if (isRtf) QVERIFY(written.contains("\\i") && written.contains("\\b"));
  }

  void NothingIsAppendedToWhatCannotBeRead() {
    Stage stage;
    stage.EnlargeBoxOne("{\\rtf1 text}");
    const QString path = stage.File("a.rtf", "no RTF at all");
    stage.dialogs.ExpectOpen(Stage::OpenRequest("Specify file to append text to", "Snipdeck_Contents.rtf"), path);
    stage.messages.Expect({.text = "Cannot load this file:\r\n\r\n" + path + "\r\n\r\nThe file is not RTF.",
                           .icon = MessageIcon::Exclamation},
                          MessageAnswer::Ok);
    stage.window.mnuAppend_Click();
    QCOMPARE(Stage::Bytes(path), QByteArray("no RTF at all"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::FileCommandsTest)
#include "file_commands_test.moc"

#include "storage/box_storage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include "fakes/scripted_messages.h"
#include "platform/whole_file.h"

namespace snipdeck {

namespace {

class FakeBoxes : public StoredBoxes {
 public:
  bool AreShown() override { return shown; }
  RichText Contents(int n) const override { return texts[static_cast<size_t>(n)]; }
  void SetSelection(int n, const RichText& text) override { texts[static_cast<size_t>(n)] = text; }
  RichText Captured(int n) const override { return captured[static_cast<size_t>(n)]; }
  void SetAltered(bool value) override { altered = value; }

  bool shown = true;
  bool altered = false;
  std::array<RichText, kCount + 1> texts;
  std::array<RichText, kCount + 1> captured;
};

}  // namespace

class BoxStorageTest : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;

  static QString Saved(const QString& folder) { return "Text boxes saved to disk in this folder:\r\n\r\n" + folder; }

 private slots:
  void EveryBoxHasItsFile() {
    const QString folder = m_folder.path();
    FakeBoxes boxes;
    ScriptedMessages messages;
    BoxStorage storage(boxes, messages, folder);
    boxes.texts[9] = RichText::FromRtf("{\\rtf1 some {\\b bold} text}");
    boxes.altered = true;
    messages.Expect(Saved(folder));
    storage.SaveAll();
    QVERIFY(!boxes.altered);
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 12);
    const auto ninth = ReadWholeFile(folder + "/QM_Snipdeck_Text_09.rtf");
    QVERIFY(ninth && ninth.Value().startsWith("{\\rtf1"));
    const RichText back = RichText::FromRtf(ninth.Value());
    QCOMPARE(back.PlainText(), QString("some bold text"));
    QVERIFY(back.Rtf().contains("\\b"));
    const auto empty = ReadWholeFile(folder + "/QM_Snipdeck_Text_12.rtf");
    QVERIFY(empty && RichText::FromRtf(empty.Value()).IsEmpty());
  }

  void AFailureIsReportedAndTheOthersAreSaved() {
    QTemporaryDir other;
    QString folder = other.path();
    QVERIFY(QDir(folder).mkdir("QM_Snipdeck_Text_03.rtf"));
    FakeBoxes boxes;
    boxes.altered = true;
    ScriptedMessages messages;
    BoxStorage storage(boxes, messages, folder);
    const QString path = folder + "/QM_Snipdeck_Text_03.rtf";
    const Outcome refused = BoxStorage::SaveBoxFile({}, path);
    QVERIFY(!refused);
    messages.Expect({.text = "Cannot save this file :\r\n\r\n" + path +
                             "\r\n\r\nThe error was probably triggered for the following reason : \r\n\r\n\"" +
                             refused.Error().text + "\"\r\n",
                     .icon = MessageIcon::Critical},
                    MessageAnswer::Ok);
    messages.Expect(Saved(folder));
    storage.SaveAll();
    QVERIFY(!boxes.altered);
    QVERIFY(QFile::exists(folder + "/QM_Snipdeck_Text_12.rtf"));
  }

  void CoveredBoxesAreNotSaved() {
    QTemporaryDir other;
    const QString folder = other.path();
    FakeBoxes boxes;
    boxes.shown = false;
    boxes.altered = true;
    ScriptedMessages messages;
    BoxStorage(boxes, messages, folder).SaveAll();
    QVERIFY(boxes.altered && QDir(folder).isEmpty());
  }

  void OnlyCapturedTextsAreRestored() {
    FakeBoxes boxes;
    ScriptedMessages messages;
    const QString folder;
    BoxStorage storage(boxes, messages, folder);
    storage.RestoreBoxes();
    QVERIFY(!boxes.altered);
    boxes.texts[2] = RichText::FromPlainText("stays");
    boxes.captured[5] = RichText::FromPlainText("comes back");
    storage.RestoreBoxes();
    QVERIFY(boxes.altered);
    QCOMPARE(boxes.texts[2].PlainText(), QString("stays"));
    QCOMPARE(boxes.texts[5].PlainText(), QString("comes back"));
  }

  void TheFolderIsTakenAsItStands() {
    const auto paths = BoxStorage::BuildBoxFilePaths("/x/");
    QCOMPARE(paths[1], QString("/x//QM_Snipdeck_Text_01.rtf"));
    QCOMPARE(paths[12], QString("/x//QM_Snipdeck_Text_12.rtf"));
    QVERIFY(paths[0].isEmpty());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::BoxStorageTest)
#include "box_storage_test.moc"

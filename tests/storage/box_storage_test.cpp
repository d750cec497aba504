#include "storage/box_storage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include "fakes/scripted_messages.h"
#include "platform/whole_file.h"
#include "richtext/document_file.h"

namespace snipdeck {

namespace {

class FakeBoxes : public StoredBoxes {
 public:
  bool AreShown() override { return shown; }
  bool CumulativeCovers() override { return !shown; }
  Outcome SaveFile(int n, const QString& path) override {
    return WriteWholeFile(path, texts[static_cast<size_t>(n)].Rtf());
  }
  void LoadFile(int n, const QString& path, FileFormat format) override {
    if (const auto text = ReadDocumentFile(path, format)) texts[static_cast<size_t>(n)] = text.Value();
  }
  void SetSelection(int n, const RichText& text) override { texts[static_cast<size_t>(n)] = text; }
  RichText Captured(int n) const override { return captured[static_cast<size_t>(n)]; }
  bool Altered() const override { return altered; }
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
    const Outcome refused = boxes.SaveFile(3, path);
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

  void OnlyBoxesWithFilesAreLoaded() {
    QTemporaryDir other;
    const QString folder = other.path();
    FakeBoxes boxes;
    ScriptedMessages messages;
    BoxStorage storage(boxes, messages, folder);
    boxes.texts[3] = RichText::FromPlainText("third");
    QVERIFY(boxes.SaveFile(3, folder + "/QM_Snipdeck_Text_03.rtf"));
    boxes.texts[3] = boxes.texts[4] = RichText::FromPlainText("new");
    boxes.altered = true;
    const Message question{.text = "Text boxes have been altered. Load contents from disk nonetheless?\r\n",
                           .icon = MessageIcon::Question,
                           .buttons = MessageButtons::YesNo};
    messages.Expect(question, MessageAnswer::No);
    storage.LoadAll();
    QCOMPARE(boxes.texts[3].PlainText(), QString("new"));
    messages.Expect(question, MessageAnswer::Yes);
    storage.LoadAll();
    QCOMPARE(boxes.texts[3].PlainText(), QString("third"));
    QCOMPARE(boxes.texts[4].PlainText(), QString("new"));
    QVERIFY(boxes.altered);
    boxes.shown = false;
    storage.LoadAll();
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

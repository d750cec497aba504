#include <QBuffer>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "clipformats/basic_text.h"
#include "clipformats/format_content.h"
#include "clipformats/frm_show_clip.h"
#include "clipformats/frm_view_and_paste.h"
#include "clipformats/scaled_picture.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_clipboard_writer.h"
#include "fakes/memory_clipboard.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"
#include "platform/qt/command_button.h"

namespace snipdeck {

namespace {

constexpr char kRtf[] = "{\\rtf1 plain {\\b bold}}";

QByteArray Png(QSize size, QImage::Format format = QImage::Format_RGB32) {
  QImage picture(size, format);
  picture.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "PNG");
  return bytes;
}

/// A drop-files block of 8-bit names.
QByteArray DropFiles(const QByteArray& names) {
  return QByteArray("\x14", 1) + QByteArray(19, '\0') + names + '\0';
}

/// The outside world of the windows, with a clipboard that a test fills.
struct Stage {
  MemoryClipboard memory;
  FakeClipboardWriter writer;
  FakeClipboard paste;
  ScriptedMessages messages;
  ScriptedDialogs dialogs;
  Settings settings;
  ClipboardWindowServices services{memory,   memory,  writer,   paste,
                                   messages, dialogs, settings, [](WindowGeometry&, const KeptPlacement&) {}};
  StagedText retrieved;
  std::int16_t result = 7;

  Stage() {
    settings.pasteWidth = settings.clipboardWidth = 9000;
    settings.pasteHeight = settings.clipboardHeight = 6000;
  }
  void HoldRtf() {
    memory.Hold(kFormatRichText, kRtf);
    memory.Hold(kFormatText, "the plain variant");
  }
  std::unique_ptr<frmViewAndPaste> View() {
    auto dialog = std::make_unique<frmViewAndPaste>(
        services, Retrieval{retrieved, result}, [](QWidget*) {}, nullptr);
    Activate(*dialog);
    return dialog;
  }
  std::unique_ptr<frmShowClip> Show() {
    auto window = std::make_unique<frmShowClip>(services, nullptr);
    Activate(*window);
    return window;
  }
  static void Activate(QWidget& window) {
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCoreApplication::processEvents();
  }
};

template <typename Widget>
Widget& Find(QWidget& window, const char* name) {
  auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
  if (!found) qFatal("%s is missing", name);
  return *found;
}

}  // namespace

class ClipboardWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void ViewsAreFilledByWhatIsThere_data() {
    QTest::addColumn<ClipboardFormat>("format");
    QTest::addColumn<QString>("full");
    QTest::addColumn<QString>("plain");
    const QString hint = "\nWindows clipboard contains %1\n\nClick on \"All types\" above to view.\n";
    QTest::newRow("rich text") << kFormatRichText << "plain bold"
                               << "the plain variant";
    QTest::newRow("text") << kFormatText << "the plain variant"
                          << "the plain variant";
    QTest::newRow("image") << kFormatBitmap << hint.arg(" an image ") << "";
    QTest::newRow("files") << kFormatFileList << hint.arg(" a list of file/folder names ") << "";
    QTest::newRow("something else") << ClipboardFormat{0xC001} << hint.arg("") << "";
  }
  void ViewsAreFilledByWhatIsThere() {
    QFETCH(ClipboardFormat, format);
    QFETCH(QString, full);
    QFETCH(QString, plain);
    Stage stage;
    format == kFormatRichText ? stage.HoldRtf() : stage.memory.Hold(format, "the plain variant");
    const auto dialog = stage.View();
    QCOMPARE(Find<RichTextControl>(*dialog, "TXTextControl1").Text(), full);
    QCOMPARE(Find<RichTextControl>(*dialog, "RichTextBox1").Text(), plain.isEmpty() ? plain : full);
    QCOMPARE(Find<RichTextControl>(*dialog, "Text1").Text(), plain);
    // Later activations read nothing.
    stage.memory.contents.clear();
    dialog->cmdBasicRTF_Click();
    QWidget other;
    Stage::Activate(other);
    Stage::Activate(*dialog);
    QCOMPARE(Find<RichTextControl>(*dialog, "TXTextControl1").Text(), full);
    QCOMPARE(Find<QLabel>(*dialog, "Label1").text(), "basic RTF");
  }

  void EachStyleIsRetrievedAsItIsShown() {
    Stage stage;
    stage.HoldRtf();
    const char* const names[] = {"full RTF", "basic RTF", "plain text"};
    for (int style = 0; style < 4; ++style) {
      const auto dialog = stage.View();
      QCOMPARE(stage.result, 0);
      for (int i = 0; i < style; ++i) Find<CommandButton>(*dialog, "cmdBasicRTF").click();
      QCOMPARE(Find<QLabel>(*dialog, "Label1").text(), names[style % 3]);
      const bool isPlain = style == 2;
      QCOMPARE(Find<RichTextControl>(*dialog, "Text1").isVisible(), isPlain);
      QTest::keyClick(&Find<CommandButton>(*dialog, "cmdBasicRTF"), Qt::Key_F12);
      QVERIFY(!dialog->isVisible());
      QCOMPARE(stage.result, 1);
      QCOMPARE(stage.retrieved.Text(), isPlain ? "the plain variant" : "plain bold");
      QCOMPARE(stage.retrieved.SelRtf().Rtf().contains("\\b"), !isPlain);
    }
  }

  void ASelectionIsRetrievedAlone() {
    Stage stage;
    stage.HoldRtf();
    const auto dialog = stage.View();
    auto& view = Find<RichTextControl>(*dialog, "TXTextControl1");
    view.SetSelStart(6);
    view.SetSelLength(-1);
    dialog->cmdRetrieve_Click();
    QCOMPARE(stage.retrieved.Text(), "bold");
  }

  void TheFullViewIsSavedWhateverIsShown() {
    Stage stage;
    stage.HoldRtf();
    QTemporaryDir folder;
    const FileRequest request{"Save clipboard contents to file", {}, {{"All files (*.*)", "*.*"}}, ""};
    const auto dialog = stage.View();
    dialog->cmdBasicRTF_Click();
    dialog->cmdBasicRTF_Click();
    stage.dialogs.ExpectSave(request, folder.filePath("clip.txt"));
    dialog->cmdSaveContents_Click();
    QFile file(folder.filePath("clip.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().trimmed(), "plain bold");
    stage.dialogs.ExpectSave(request, "");
    dialog->cmdSaveContents_Click();
    // A failure is not told.
    stage.dialogs.ExpectSave(request, folder.filePath("nowhere/clip.rtf"));
    dialog->cmdSaveContents_Click();
  }

  void PlacementsAreKeptAndSmallOnesGrow() {
    Stage stage;
    stage.settings.pasteWidth = 600;
    stage.settings.pasteHeight = 600;
    stage.settings.pasteLeft = 1500;
    const auto dialog = stage.View();
    dialog->move(dialog->x() + 10, dialog->y());
    dialog->resize(200, 100);
    Find<CommandButton>(*dialog, "cmdExit").click();
    QVERIFY(stage.settings.pasteWidth >= 5850 && stage.settings.pasteHeight >= 3990);
    QCOMPARE(stage.settings.pasteLeft, 1650);
    QCOMPARE(stage.result, 0);
  }

  void TheMostTellingKindIsShown_data() {
    QTest::addColumn<QList<ClipboardFormat>>("formats");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    using Formats = QList<ClipboardFormat>;
    QTest::newRow("rich text") << Formats{kFormatText, kFormatRichText, kFormatBitmap} << "RTF text"
                               << "plain bold";
    QTest::newRow("text") << Formats{kFormatBitmap, kFormatText} << "plain text"
                          << "text";
    QTest::newRow("image") << Formats{kFormatFileList, kFormatBitmap} << "image"
                           << "";
    QTest::newRow("files") << Formats{kFormatFileList} << "file/folder names"
                           << "C:\\a.txt\nD:\\b\n";
    QTest::newRow("something else") << Formats{0xC001} << ""
                                    << "";
  }
  void TheMostTellingKindIsShown() {
    QFETCH(QList<ClipboardFormat>, formats);
    QFETCH(QString, kind);
    QFETCH(QString, text);
    Stage stage;
    for (const ClipboardFormat format : formats) {
      if (format == kFormatRichText) stage.memory.Hold(format, kRtf);
      if (format == kFormatText || format == 0xC001) stage.memory.Hold(format, "text");
      if (format == kFormatBitmap) stage.memory.Hold(format, Png({40, 30}));
      if (format == kFormatFileList) stage.memory.Hold(format, DropFiles(QByteArray("C:\\a.txt\0D:\\b\0", 14)));
    }
    const auto window = stage.Show();
    QVERIFY(!stage.memory.isOpen);
    QCOMPARE(Find<QLabel>(*window, "lblFormat").text(), kind);
    QCOMPARE(Find<RichTextControl>(*window, "txtView").Text(), text);
    QCOMPARE(Find<RichTextControl>(*window, "txtView").isVisible(), kind != "image");
    QCOMPARE(Find<PictureView>(*window, "picView").isVisible(), kind == "image");
  }

  void CopyTellsWhyThereIsNothingToCopy() {
    Stage stage;
    stage.HoldRtf();
    const auto window = stage.Show();
    auto& view = Find<RichTextControl>(*window, "txtView");
    stage.messages.Expect("No text selected.");
    window->cmdCopy_Click();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(stage.writer.calls.isEmpty());
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(view.SelLength(), 10);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    window->cmdCopy_Click();
    QCOMPARE(stage.writer.calls, (QStringList{"add", "add"}));
    QVERIFY(stage.writer.offer.rtf.contains("\\b"));
    stage.memory.contents.clear();
    stage.messages.Expect("This option only works with text display.");
    window->cmdCopy_Click();
    QWidget other;
    Stage::Activate(other);
    Stage::Activate(*window);
    QCOMPARE(view.SelLength(), 0);
  }

  void PicturesAreScaledDownAndNeverUp_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("small") << QSize(40, 30) << QImage::Format_RGB32;
    QTest::newRow("wide") << QSize(3000, 200) << QImage::Format_RGB32;
    QTest::newRow("thin") << QSize(6000, 2) << QImage::Format_RGB32;
    QTest::newRow("large and grey") << QSize(6000, 6000) << QImage::Format_Grayscale8;
  }
  void PicturesAreScaledDownAndNeverUp() {
    QFETCH(QSize, size);
    QFETCH(QImage::Format, format);
    PictureView view(nullptr);
    view.resize(300, 200);
    view.SetPicture({Png(size, format), "png"});
    QTRY_COMPARE(view.FullSize(), size);
    const QSize shown = view.Target().size();
    QVERIFY(shown.width() <= 300 && shown.height() <= 200 && !shown.isEmpty());
    if (size.width() < 300) {
      QCOMPARE(shown, size);
    } else {
      QVERIFY(shown.width() == 300 || shown.height() == 200);
    }
    QCOMPARE(view.grab().toImage().pixelColor(0, 0).alpha(), 255);
  }

  void ADamagedPictureIsToldAsSuch() {
    PictureView view(nullptr);
    view.SetPicture({Png({4000, 4000}).left(200), "png"});
    QTRY_VERIFY(view.accessibleDescription().startsWith("This picture cannot be shown"));
  }

  void APictureThatIsTooLargeIsNotReadAtAll() {
    QByteArray announced = "P6\n20000 20000\n255\n";
    QBuffer buffer(&announced);
    buffer.open(QIODevice::ReadOnly);
    QTest::failOnWarning(QRegularExpression(".*"));
    QVERIFY(ReadScaled(buffer, "ppm", {300, 200}).image.isNull());
  }

  void EveryFormatIsReadOrSaysWhyNot() {
    Stage stage;
    const ClipboardFormat own = stage.memory.RegisterFormat("Own");
    stage.memory.Hold(kFormatText, "text");
    stage.memory.Hold(own, QByteArray("\1\2", 2));
    stage.memory.Hold(kFormatFileList, "x");
    stage.memory.unreadable = kFormatFileList;
    stage.memory.refusal = "the owner refused it";
    const auto window = stage.Show();
    window->cmdFormats_Click();
    auto& list = Find<QTreeWidget>(*window, "lstFormats");
    QCOMPARE(list.topLevelItemCount(), 3);
    QTRY_VERIFY(!list.topLevelItem(2)->text(3).isEmpty());
    QCOMPARE(list.topLevelItem(1)->text(1), "Own");
    QCOMPARE(list.topLevelItem(1)->text(2), "2");
    QCOMPARE(list.topLevelItem(2)->text(3), "the owner refused it");
    list.setCurrentItem(list.topLevelItem(1));
    QCOMPARE(Find<QPlainTextEdit>(*window, "txtFormat").toPlainText().left(15), "00000000  01 02");
    window->cmdFormats_Click();
    QVERIFY(Find<RichTextControl>(*window, "txtView").isVisible());
  }

  void BytesAreDescribed_data() {
    QTest::addColumn<ClipboardFormat>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isWhole");
    QTest::addColumn<QString>("words");
    QTest::newRow("code page") << kFormatText << QByteArray("caf\xE9\0", 5) << true << QStringLiteral(u"caf\u00e9");
    QTest::newRow("UTF-16") << kFormatUnicodeText << QByteArray("a\0\xAC\x20\0\0", 6) << true << QStringLiteral(u"a\u20ac");
    QTest::newRow("UTF-8") << 0xC001 << QByteArray("<b>\xC3\xA9</b>") << true << QStringLiteral(u"<b>\u00e9</b>");
    QTest::newRow("cut in a character") << 0xC001 << QByteArray("ab\xC3") << false << QString("ab...");
    QTest::newRow("UTF-16 of another name") << 0xC001 << QByteArray("h\0t\0t\0p\0", 8) << true << QString("http");
    QTest::newRow("bytes") << 0xC001 << QByteArray("a\1\xFF") << true
                           << "00000000  61 01 ff" + QString(40, ' ') + " a..\n";
  }
  void BytesAreDescribed() {
    QFETCH(ClipboardFormat, format);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isWhole);
    QFETCH(QString, words);
    QCOMPARE(DescribeBytes(format, bytes, isWhole).words, words);
  }

  void BasicTextHasNoTablesAndNoPictures() {
    const RichText basic = BasicText(RichText::FromHtml(
        "<p align=center>one <b>two</b></p><table><tr><td>a</td><td>b</td></tr></table><ul><li>item</li></ul>"));
    QVERIFY(basic.PlainText().contains("one two\na\tb\n"));
    QVERIFY(basic.PlainText().endsWith("\titem"));
    QVERIFY(basic.Document().rootFrame()->childFrames().isEmpty());
    QVERIFY(basic.Document().begin().blockFormat().alignment() & Qt::AlignHCenter);
    QVERIFY(basic.Rtf().contains("\\b"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ClipboardWindowsTest)
#include "clipboard_windows_test.moc"

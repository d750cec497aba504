#include "clipformats/custom_clipboard.h"

#include <QFileInfo>
#include <QTest>

#include "fakes/memory_clipboard.h"

namespace snipdeck {

namespace {

constexpr WindowHandle kWindow = 7;

}  // namespace

class CustomClipboardTest : public QObject {
  Q_OBJECT

  struct Fixture {
    MemoryClipboard memory;
    cCustomClipboard clipboard{memory, memory};
    explicit Fixture(bool isOpen = true) {
      if (isOpen) clipboard.ClipboardOpen(kWindow);
    }
  };

 private slots:
  void StandardFormatsHaveFixedNames() {
    Fixture f;
    f.memory.registered.insert(QString(300, 'n'), 0xC123);
    QCOMPARE(f.clipboard.FormatName(1), "Text");
    QCOMPARE(f.clipboard.FormatName(6), "Tagged Image File Format (TIFF) Picture");
    QCOMPARE(f.clipboard.FormatName(15), "File List");
    for (const int nameless : {16, 17, 0, -1, 18, 0xC999}) QCOMPARE(f.clipboard.FormatName(nameless), QString());
    QCOMPARE(f.clipboard.FormatName(0xC123), QString(255, 'n'));
  }

  void AddFormatWantsANumberAboveTheFirst() {
    Fixture f;
    f.memory.nextFormat = kFirstRegisteredFormat;
    QCOMPARE(f.clipboard.AddFormat("first"), 0);
    QCOMPARE(f.clipboard.AddFormat("second"), 0xC001);
    QCOMPARE(f.clipboard.AddFormat("second"), 0xC001);
  }

  void ListsDescribeTheLastRefresh() {
    Fixture f(false);
    f.memory.Hold(f.memory.RegisterFormat("Own"), "x");
    f.memory.Hold(kFormatText, "t");
    QVERIFY(!f.clipboard.HasCurrentFormat(kFormatText));
    QCOMPARE(f.clipboard.GetCurrentFormats(kWindow), 2);
    f.memory.contents.clear();
    QCOMPARE(f.clipboard.FormatCount(), 0);
    QVERIFY(f.clipboard.HasCurrentFormat(kFormatText) && !f.clipboard.HasCurrentFormat(0));
    QCOMPARE(f.clipboard.GetCurrentFormatID(1), 0xC001);
    QCOMPARE(f.clipboard.GetCurrentFormatName(1), "Own");
    QCOMPARE(f.clipboard.GetCurrentFormatName(2), "Text");
    for (const int outside : {0, 3, -1}) {
      QVERIFY_EXCEPTION_THROWN(f.clipboard.GetCurrentFormatID(outside), IndexOutOfRange);
      QVERIFY_EXCEPTION_THROWN(f.clipboard.GetCurrentFormatName(outside), IndexOutOfRange);
    }
  }

  void ARefreshEndsClosedAndEmptyWhenAnotherProgramHoldsIt() {
    Fixture f;
    f.memory.Hold(kFormatText, "t");
    QCOMPARE(f.clipboard.GetCurrentFormats(kWindow), 1);
    QVERIFY(!f.memory.isOpen);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.ClearClipboard(), ClipboardNotOpenError);
    f.memory.heldByOther = true;
    QCOMPARE(f.clipboard.GetCurrentFormats(kWindow), 0);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.GetCurrentFormatID(1), IndexOutOfRange);
  }

  void NamesFindFormatsExactly() {
    Fixture f(false);
    const ClipboardFormat own = f.memory.RegisterFormat("Own");
    f.memory.Hold(own, "x");
    QCOMPARE(f.clipboard.FormatIDForName(kWindow, "Own"), own);
    QCOMPARE(f.clipboard.FormatIDForName(kWindow, "own"), 0);
    QVERIFY(f.clipboard.IsDataAvailableForFormatName(kWindow, "Own"));
    QVERIFY(!f.clipboard.IsDataAvailableForFormatName(kWindow, "other"));
  }

  void ClosedInstancesRefuse_data() {
    QTest::addColumn<bool>("openForNoWindow");
    QTest::newRow("never opened") << false;
    QTest::newRow("opened for window 0") << true;
  }
  void ClosedInstancesRefuse() {
    QFETCH(bool, openForNoWindow);
    Fixture f(false);
    f.memory.Hold(kFormatFileList, QByteArray(24, '\0'));
    if (openForNoWindow) QVERIFY(f.clipboard.ClipboardOpen(0));
    ByteArray bytes;
    StringArray files;
    QString text;
    std::int32_t count = 5;
    QVERIFY_EXCEPTION_THROWN(f.clipboard.GetBinaryData(1, bytes), ClipboardNotOpenError);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.GetFileList(files, count), ClipboardNotOpenError);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.GetTextData(7, text), ClipboardNotOpenError);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.SetTextData(7, "x"), ClipboardNotOpenError);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.SetFileList(StringArray()), ClipboardNotOpenError);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.ClearClipboard(), ClipboardNotOpenError);
    QCOMPARE(count, 5);
  }

  void TheNotOpenErrorSaysWhatItIs() {
    Fixture f(false);
    try {
      f.clipboard.ClearClipboard();
      QFAIL("nothing thrown");
    } catch (const ClipboardError& error) {
      QCOMPARE(error.Number(), static_cast<std::int32_t>(0x80040000u + 1570u));
      QCOMPARE(error.Source(), "custom_clipboard_test.cCustomClipboard");
      QCOMPARE(error.Description(), "Attempt to access the clipboard when clipboard not Open.");
    }
  }

  void OpenAndClosePassToThePlatform() {
    MemoryClipboard memory;
    {
      cCustomClipboard clipboard(memory, memory);
      clipboard.ClipboardClose();
      QVERIFY(clipboard.ClipboardOpen(kWindow));
      QVERIFY(clipboard.ClipboardOpen(kWindow));
      QCOMPARE(memory.opened, 2);
      memory.heldByOther = true;
      QVERIFY(!clipboard.ClipboardOpen(kWindow));
      QVERIFY_EXCEPTION_THROWN(clipboard.ClearClipboard(), ClipboardNotOpenError);
      memory.heldByOther = false;
      QVERIFY(clipboard.ClipboardOpen(kWindow));
    }
    QVERIFY(!memory.isOpen);
  }

  void BinaryDataIsTheWholeBlock() {
    Fixture f;
    f.memory.slack = 4;
    QVERIFY(f.clipboard.SetBinaryData(0xC001, ByteArray(5, {1, 2, 3})));
    ByteArray bytes;
    QVERIFY(f.clipboard.GetBinaryData(0xC001, bytes));
    QCOMPARE(bytes.LowerBound(), 0);
    QCOMPARE(bytes.UpperBound(), 6);
    QCOMPARE(bytes.Entries(), (std::vector<std::uint8_t>{1, 2, 3, 0, 0, 0, 0}));
    QVERIFY(!f.clipboard.GetBinaryData(0xC002, bytes));
    QVERIFY(bytes.IsEmpty());
    f.memory.Hold(0xC003, QByteArray());
    QVERIFY(!f.clipboard.GetBinaryData(0xC003, bytes));
  }

  void WritingAddsAndClearingEmpties() {
    Fixture f;
    f.memory.Hold(kFormatText, "stays");
    QVERIFY(f.clipboard.SetBinaryData(0xC001, ByteArray(0, {1})));
    QCOMPARE(f.memory.BytesOf(kFormatText), "stays");
    f.clipboard.ClearClipboard();
    QCOMPARE(f.clipboard.FormatCount(), 0);
  }

  void RefusedDataIsReported() {
    Fixture f;
    f.memory.refusesData = true;
    QVERIFY(!f.clipboard.SetTextData(7, "x"));
    f.memory.refusesData = false;
    f.memory.isOutOfMemory = true;
    QVERIFY(!f.clipboard.SetTextData(7, "x"));
    QVERIFY_EXCEPTION_THROWN(f.clipboard.SetBinaryData(7, ByteArray()), IndexOutOfRange);
    QVERIFY_EXCEPTION_THROWN(f.clipboard.SetFileList(StringArray()), IndexOutOfRange);
  }

  void TextIsWrittenWithATerminator() {
    Fixture f;
    QVERIFY(f.clipboard.SetTextData(1, "abc"));
    QCOMPARE(f.memory.BytesOf(1), QByteArray("abc\0", 4));
    QVERIFY(!f.clipboard.SetTextData(1, ""));
    QCOMPARE(f.memory.BytesOf(1), QByteArray("abc\0", 4));
    f.memory.doubleByteCharacter = u'\u3042';
    QVERIFY_EXCEPTION_THROWN(f.clipboard.SetTextData(1, QStringLiteral(u"a\u3042")), CharacterOverflow);
  }

  void OtherFormatsKeepEveryByteAsText() {
    Fixture f;
    f.memory.Hold(0xC001, QByteArray("abc\0\0\0\0\0", 8));
    QString text = "before";
    QVERIFY(!f.clipboard.GetTextData(0xC002, text));
    QCOMPARE(text, "before");
    QVERIFY(f.clipboard.GetTextData(0xC001, text));
    QCOMPARE(text, "abc" + QString(5, QChar(u'\0')));
  }

  void TextIsReadWithTheClipboardReleased() {
    Fixture f;
    f.memory.Hold(kFormatText, "held");
    QString text;
    QVERIFY(f.clipboard.GetTextData(13, text));
    QCOMPARE(text, "held");
    QVERIFY(f.memory.isOpen);
    f.clipboard.ClearClipboard();
    QVERIFY(f.clipboard.GetTextData(1, text));
    QCOMPARE(text, "");
    f.clipboard.ClipboardClose();
    QVERIFY(f.clipboard.GetTextData(1, text));
    QVERIFY(!f.memory.isOpen);
    f.memory.heldByOther = true;
    text = "before";
    QVERIFY(f.clipboard.GetTextData(1, text));
    QCOMPARE(text, "");
  }

  void FileListsAreDropFilesBlocks() {
    Fixture f;
    QVERIFY(f.clipboard.SetFileList(StringArray(3, {"C:\\a.txt", "D:\\b"})));
    const QByteArray expected = QByteArray("\x14", 1) + QByteArray(19, '\0') + QByteArray("C:\\a.txt\0D:\\b\0\0", 15);
    QCOMPARE(expected.size(), 35);
    QCOMPARE(f.memory.BytesOf(kFormatFileList), expected);
    StringArray files;
    std::int32_t count = 0;
    QVERIFY(f.clipboard.GetFileList(files, count));
    QCOMPARE(count, 2);
    QCOMPARE(files.LowerBound(), 1);
    QCOMPARE(files.Entries(), (std::vector<QString>{"C:\\a.txt", "D:\\b"}));
    QVERIFY_EXCEPTION_THROWN(files.At(3), IndexOutOfRange);
  }

  void NamesAreCutToTheBuffer() {
    Fixture f;
    QVERIFY(f.clipboard.SetFileList(StringArray(1, {QString(400, 'n'), "short"})));
    StringArray files;
    std::int32_t count = 0;
    QVERIFY(f.clipboard.GetFileList(files, count));
    QCOMPARE(files.At(1), QString(259, 'n'));
    QCOMPARE(files.At(2), "short");
  }

  void WithoutAFileListNothingIsTouched() {
    Fixture f;
    StringArray files;
    std::int32_t count = 5;
    QVERIFY(!f.clipboard.GetFileList(files, count));
    QCOMPARE(count, 5);
    QVERIFY(files.IsEmpty());
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::CustomClipboardTest)
#include "custom_clipboard_test.moc"

#include "platform/x11/format_blocks.h"

#include <QBuffer>
#include <QTest>

#include "platform/x11/format_table.h"

namespace snipdeck {

class FormatBlocksTest : public QObject {
  Q_OBJECT

  static QByteArray Encoded(const QImage& picture, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
  }

 private slots:
  void TextsHaveWindowsLineEndsAndATerminator() {
    QCOMPARE(UnicodeTextBlock(QStringLiteral(u"a\u20AC\n")), QByteArray("a\0\xAC\x20\r\0\n\0\0\0", 10));
    QCOMPARE(CodePageTextBlock(QStringLiteral(u"a\u20AC\u00E9\u03A9\r\n")), QByteArray("a\x80\xE9?\r\n\0", 7));
    QCOMPARE(TextOfUnicodeBlock(QByteArray("a\0\r\0\n\0\0\0z\0", 10)), "a\n");
    QCOMPARE(TextOfCodePageBlock(QByteArray("\x80\xE9\0z", 4)), QStringLiteral(u"\u20AC\u00E9"));
    QCOMPARE(TextOfUnicodeBlock(QByteArray("a\0b", 3)), "a");
    QCOMPARE(UnicodeTextBlock(QString()), QByteArray(2, '\0'));
  }

  void DropFilesComeBackInEitherWidth() {
    const QStringList paths{"/tmp/a b.txt", QStringLiteral(u"/tmp/\u65E5\u672C")};
    const QByteArray block = DropFilesBlock(paths);
    QCOMPARE(block.first(20), QByteArray("\x14", 1) + QByteArray(15, '\0') + QByteArray("\1\0\0\0", 4));
    QCOMPARE(block.size(), 20 + 2 * (13 + 8 + 1));
    QCOMPARE(NamesOfDropFiles(block), paths);
    QCOMPARE(NamesOfDropFiles(QByteArray("\x14", 1) + QByteArray(19, '\0') + QByteArray("C:\\a\0D:\\b\0\0z", 12)),
             (QStringList{"C:\\a", "D:\\b"}));
    QCOMPARE(UriListOf(paths), "file:///tmp/a%20b.txt\r\nfile:///tmp/%E6%97%A5%E6%9C%AC\r\n");
  }

  void DamagedDropFilesHoldNoNames() {
    QCOMPARE(NamesOfDropFiles(QByteArray()), QStringList());
    QCOMPARE(NamesOfDropFiles(QByteArray(20, '\0')), QStringList());
    QCOMPARE(NamesOfDropFiles(QByteArray("\xFF\xFF\xFF\xFF", 4) + QByteArray(30, 'x')), QStringList());
    QCOMPARE(NamesOfDropFiles(QByteArray("\x14", 1) + QByteArray(15, '\0') + QByteArray("\1\0\0\0a", 5)),
             QStringList());
  }

  void PicturesTravelAsDib_data() {
    QTest::addColumn<int>("format");
    QTest::newRow("true colour") << static_cast<int>(QImage::Format_RGB32);
    QTest::newRow("256 colours") << static_cast<int>(QImage::Format_Indexed8);
    QTest::newRow("two colours") << static_cast<int>(QImage::Format_Mono);
  }
  void PicturesTravelAsDib() {
    QFETCH(int, format);
    QImage picture(5, 3, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixelColor(4, 2, Qt::black);
    picture = picture.convertToFormat(static_cast<QImage::Format>(format));
    const QByteArray dib = DibBlock(DecodePicture("image/png", Encoded(picture, "PNG")));
    QCOMPARE(dib.first(12), QByteArray("\x28\0\0\0\5\0\0\0\3\0\0\0", 12));
    const QImage back = DecodePicture("image/bmp", BmpOfDib(dib));
    QCOMPARE(back.convertToFormat(QImage::Format_RGB32), picture.convertToFormat(QImage::Format_RGB32));
  }

  void WhatIsNoPictureIsNone() {
    QVERIFY(DecodePicture("image/png", "no picture").isNull());
    QVERIFY(DecodePicture("image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>").isNull());
    QVERIFY(!DecodePicture("image/bmp", Encoded(QImage(8000, 1000, QImage::Format_Mono), "BMP")).isNull());
    QVERIFY(DecodePicture("image/bmp", Encoded(QImage(8001, 8000, QImage::Format_Mono), "BMP")).isNull());
    QVERIFY(DibBlock(QImage()).isEmpty());
    QVERIFY(BmpOfDib("short").isEmpty());
  }

  void TargetsAreFormats() {
    FormatTable table;
    const std::vector<QByteArray> targets{"text/html",  "STRING",    "UTF8_STRING",   "text/richtext",
                                          "image/jpeg", "image/png", "text/uri-list", "text/rtf"};
    const ClipboardFormat html = table.Register("text/html");
    QVERIFY(html > kFirstRegisteredFormat && html != table.RichText());
    QCOMPARE(table.FormatsOf(targets), (std::vector<ClipboardFormat>{html, 13, 1, table.RichText(), 8, 2, 15}));
    QCOMPARE(table.TargetsFor(1, targets), (std::vector<QByteArray>{"UTF8_STRING", "STRING"}));
    QCOMPARE(table.TargetsFor(table.RichText(), targets), (std::vector<QByteArray>{"text/rtf", "text/richtext"}));
    QCOMPARE(table.TargetsFor(html, targets), (std::vector<QByteArray>{"text/html"}));
    QCOMPARE(table.TargetsFor(0xFFFF, targets), std::vector<QByteArray>());
    QCOMPARE(table.NameOf(table.RichText()), "Rich Text Format");
  }

  void NamesKeepTheirNumbersUntilAllAreTaken() {
    FormatTable table;
    const ClipboardFormat first = table.Register("application/x-first");
    QVERIFY(table.Register("Application/X-First") != first);
    for (int i = 0; i < 0x4000; ++i) table.Register("made up " + QByteArray::number(i));
    QCOMPARE(table.Register("application/x-first"), first);
    QCOMPARE(table.Register("one too many"), 0);
    QCOMPARE(table.Register(QByteArray()), 0);
    QCOMPARE(FormatTable().Register(QByteArray(256, 'n')), 0);
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::FormatBlocksTest)
#include "format_blocks_test.moc"

#include "platform/x11/target_content.h"

#include <QMimeData>
#include <QTest>
#include <QUrl>

#include "platform/x11/own_contents.h"

namespace snipdeck {

class TargetContentTest : public QObject {
  Q_OBJECT

 private slots:
  void DecodesText() {
    QCOMPARE(DecodeText("UTF8_STRING", "gr\xC3\xBC\xC3\x9F"), QStringLiteral(u"grüß"));
    QCOMPARE(DecodeText("STRING", "gr\xFC\xDF"), QStringLiteral(u"grüß"));
    QCOMPARE(DecodeText("text/plain", QByteArray("end\0\0", 5)), QString("end"));
    QCOMPARE(DecodeText("UTF8_STRING", QByteArray()), QString());
  }

  void DecodesUriLists() {
    QCOMPARE(DecodeUriList("# comment\r\nfile:///tmp/a%20b.txt\r\nhttp://example.org/x\r\n\r\nfile:///c\n"),
             (QStringList{"/tmp/a b.txt", "http://example.org/x", "/c"}));
    QCOMPARE(DecodeUriList(QByteArray("\0\0", 2)), QStringList());
  }

  void MailEnrichedTextIsNoRtf() {
    QVERIFY(LooksLikeRtf("{\\rtf1\\ansi x}"));
    QVERIFY(!LooksLikeRtf("<bold>mail</bold>"));
    QVERIFY(!LooksLikeRtf(""));
  }

  void OwnContentsPreferRtf() {
    QMimeData data;
    data.setText("text");
    data.setHtml("<b>text</b>");
    QCOMPARE(SnapshotOfMimeData(data).richText.encoding, RichTextPayload::Encoding::Html);
    data.setData("text/rtf", "{\\rtf1 text}");
    const ClipboardSnapshot snapshot = SnapshotOfMimeData(data);
    QCOMPARE(snapshot.richText.encoding, RichTextPayload::Encoding::Rtf);
    QCOMPARE(snapshot.text, QString("text"));
    QVERIFY(!snapshot.hasFileList && !snapshot.hasBitmap);
  }
};

}  // namespace snipdeck

QTEST_APPLESS_MAIN(snipdeck::TargetContentTest)
#include "target_content_test.moc"

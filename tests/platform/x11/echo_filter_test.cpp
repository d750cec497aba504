#include "platform/x11/echo_filter.h"

#include <QTest>

namespace snipdeck {

class EchoFilterTest : public QObject {
  Q_OBJECT

  static ClipboardSnapshot Rich() {
    ClipboardSnapshot contents = Plain();
    contents.hasRichText = true;
    contents.richText = {RichTextPayload::Encoding::Rtf, "{\\rtf1 text}"};
    return contents;
  }
  static ClipboardSnapshot Plain(const QString& text = "text") {
    ClipboardSnapshot contents;
    contents.hasText = true;
    contents.text = text;
    return contents;
  }

 private slots:
  void TellsEchoesFromCopies_data() {
    QTest::addColumn<uint>("client");
    QTest::addColumn<uint>("time");
    QTest::addColumn<QList<uint>>("readable");
    QTest::addColumn<int>("targetCount");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isEcho");
    const QList<uint> fewer{10, 20};
    const QList<uint> all{10, 20, 30};
    QTest::newRow("fewer forms at once") << 2u << 1500u << fewer << 2 << "text" << true;
    QTest::newRow("with a mark of its own") << 2u << 1500u << fewer << 3 << "text" << true;
    QTest::newRow("fewer names of its own") << 2u << 1500u << all << 4 << "text" << true;
    QTest::newRow("all forms") << 2u << 1500u << all << 5 << "text" << false;
    QTest::newRow("one more form") << 2u << 1500u << QList<uint>{10, 40} << 2 << "text" << false;
    QTest::newRow("by the same client") << 1u << 1500u << fewer << 2 << "text" << false;
    QTest::newRow("too late") << 2u << 3001u << fewer << 2 << "text" << false;
    QTest::newRow("another text") << 2u << 1500u << fewer << 2 << "other" << false;
    QTest::newRow("at a time unknown") << 2u << 0u << fewer << 2 << "text" << false;
  }
  void TellsEchoesFromCopies() {
    QFETCH(uint, client);
    QFETCH(uint, time);
    QFETCH(QList<uint>, readable);
    QFETCH(int, targetCount);
    QFETCH(QString, text);
    EchoFilter filter;
    const CopyOrigin first{.client = 1, .time = 1000, .readable = {10, 20, 30}, .targetCount = 5};
    const CopyOrigin second{client, time, {readable.begin(), readable.end()}, static_cast<std::size_t>(targetCount)};
    QVERIFY(!filter.IsEcho(second, Plain(text)));
    filter.Told(first, Rich());
    QTEST(filter.IsEcho(second, Plain(text)), "isEcho");
  }

  void AServersClockMayWrap() {
    EchoFilter filter;
    filter.Told({.client = 1, .time = 0xFFFFFF00, .readable = {10, 20}, .targetCount = 2}, Rich());
    QVERIFY(filter.IsEcho({.client = 2, .time = 500, .readable = {10}, .targetCount = 1}, Plain()));
  }
};

}  // namespace snipdeck

QTEST_APPLESS_MAIN(snipdeck::EchoFilterTest)
#include "echo_filter_test.moc"

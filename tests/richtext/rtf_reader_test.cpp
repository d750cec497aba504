// Golden pairs: tests/data/rtf/<feature>.rtf is read, and what it shows must be <feature>.expected. On a difference the
// new description is written to <feature>.new in the working directory; once it is known to be right, it takes the old
// one's place.

#include "richtext/rtf/rtf_reader.h"


#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QTextDocument>
#include <QTextTable>

#include "richtext/document_compare.h"
#include "richtext/format_properties.h"
#include "richtext/linear_time.h"
#include "richtext/rich_text.h"
#include "richtext/rtf/rtf_tokenizer.h"
#include "richtext/safe_document.h"

using namespace snipdeck;

namespace {

const QString kData = QStringLiteral(SNIPDECK_TEST_DATA "/rtf/");

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read %s", qPrintable(path));
  return file.readAll();
}

QString TextOf(const QByteArray& rtf) {
  SafeDocument document;
  ReadRtf(rtf, document, ReadFor::Box);
  return document.toPlainText();
}

void AddFiles(const QString& folder) {
  QTest::addColumn<QString>("path");
  const QDir dir(folder);
  for (const QString& name : dir.entryList({QStringLiteral("*.rtf")}, QDir::Files)) {
    QTest::newRow(qPrintable(name)) << dir.filePath(name);
  }
}

}  // namespace

class RtfReaderTest : public QObject {
  Q_OBJECT

 private slots:
  void Golden_data() { AddFiles(kData); }
  void Golden();
  void HostileIsShown_data() { AddFiles(kData + QStringLiteral("pass")); }
  void HostileIsShown();
  void NoRtfIsEmpty_data() { AddFiles(kData + QStringLiteral("fail")); }
  void NoRtfIsEmpty();
  void CutAnywhere_data() { AddFiles(kData); }
  void CutAnywhere();
  void CutProseShowsItsBeginning();
  void HeadersBelongToDocuments();
  void OneRowGivesTheWidths();
  void LongTablesStayWhole();
  void Tokens();
  void TimeGrowsLinearly_data();
  void TimeGrowsLinearly();
};

void RtfReaderTest::Golden() {
  QFETCH(QString, path);
  SafeDocument document;
  ReadRtf(BytesOf(path), document, ReadFor::Box);
  const QString actual = test::Describe(document).join(u'\n') + u'\n';
  QFile expected(QString(path).replace(QStringLiteral(".rtf"), QStringLiteral(".expected")));
  const bool known = expected.open(QIODevice::ReadOnly);
  if (known && actual == QString::fromUtf8(expected.readAll())) return;
  QFile fresh(QFileInfo(path).completeBaseName() + QStringLiteral(".new"));
  if (fresh.open(QIODevice::WriteOnly)) fresh.write(actual.toUtf8());
  QFAIL(qPrintable(QStringLiteral("differs from what is expected; see ") + QFileInfo(fresh).absoluteFilePath()));
}

void RtfReaderTest::HostileIsShown() {
  QFETCH(QString, path);
  QElapsedTimer timer;
  timer.start();
  QVERIFY(TextOf(BytesOf(path)).contains(QStringLiteral("shown")));
  QVERIFY2(timer.elapsed() < 2000, "too slow");
}

void RtfReaderTest::NoRtfIsEmpty() {
  QFETCH(QString, path);
  SafeDocument document;
  QVERIFY(!ReadRtf(BytesOf(path), document, ReadFor::Box).isEmpty());
  QVERIFY(document.isEmpty());
}

void RtfReaderTest::CutAnywhere() {
  QFETCH(QString, path);
  const QByteArray whole = BytesOf(path);
  for (qsizetype size = 0; size < whole.size(); ++size) TextOf(whole.first(size));
}

void RtfReaderTest::CutProseShowsItsBeginning() {
  const QByteArray whole =
      "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1\\green2\\blue3;}\\pard One {\\b two} thr\\'e9e\\par "
      "{\\i four} five\\par}";
  const QString all = TextOf(whole);
  QCOMPARE(all, QStringLiteral("One two thr\u00E9e\nfour five"));
  qsizetype longest = 0;
  for (qsizetype size = 0; size <= whole.size(); ++size) {
    const QString text = TextOf(whole.first(size));
    // An escape that is cut in two may leave one wrong character at the end.
    QVERIFY2(all.startsWith(text) || all.startsWith(text.chopped(1)), qPrintable(text));
    longest = std::max(longest, text.size());
  }
  QCOMPARE(longest, all.size());
}

void RtfReaderTest::HeadersBelongToDocuments() {
  const QByteArray rtf = BytesOf(kData + QStringLiteral("sections.rtf"));
  SafeDocument box;
  SafeDocument whole;
  ReadRtf(rtf, box, ReadFor::Box);
  ReadRtf(rtf, whole, ReadFor::Document);
  QVERIFY(!box.rootFrame()->frameFormat().hasProperty(kHeaderText));
  QCOMPARE(whole.rootFrame()->frameFormat().stringProperty(kHeaderText), QStringLiteral("head"));
  QCOMPARE(whole.rootFrame()->frameFormat().stringProperty(kFooterText), QStringLiteral("foot"));
  QCOMPARE(whole.toPlainText(), box.toPlainText());
  QCOMPARE(box.rootFrame()->frameFormat().intProperty(kPageMarginLeft), 900);
  QCOMPARE(box.rootFrame()->frameFormat().intProperty(kPageWidth), 11906);
}

// A row whose edges make no sense takes the widths from none of the others.
void RtfReaderTest::OneRowGivesTheWidths() {
  SafeDocument document;
  ReadRtf(
      "{\\rtf1\\trowd\\cellx1500\\cellx1500\\pard\\intbl a\\cell b\\cell\\row"
      "\\trowd\\cellx1500\\cellx4500\\intbl c\\cell d\\cell\\row\\pard\\par}",
      document, ReadFor::Box);
  const auto* const table = qobject_cast<QTextTable*>(document.rootFrame()->childFrames().value(0));
  QVERIFY(table);
  QList<double> widths;
  for (const QTextLength& width : table->format().columnWidthConstraints()) widths.append(width.rawValue());
  QCOMPARE(widths, QList<double>({100, 200}));
}

void RtfReaderTest::Tokens() {
  const QByteArray rtf = "{\\b-12 x\\'4\\'zz\\bin3 }{\\}\\*\\\r\n\\fs99999999999999\\u-5?}";
  RtfTokenizer tokenizer(rtf);
  RtfToken token;
  QStringList seen;
  using Kind = RtfToken::Kind;
  while (tokenizer.Next(token)) {
    const QString word = QString::fromLatin1(token.word.data(), static_cast<qsizetype>(token.word.size()));
    const QString bytes = QString::fromLatin1(token.bytes);
    if (token.kind == Kind::GroupStart) seen << QStringLiteral("{");
    if (token.kind == Kind::GroupEnd) seen << QStringLiteral("}");
    if (token.kind == Kind::Word) seen << QStringLiteral("%1=%2").arg(word).arg(token.value);
    if (token.kind == Kind::Symbol) seen << QStringLiteral("symbol %1").arg(token.value);
    if (token.kind == Kind::Text) seen << QStringLiteral("text ") + bytes;
    if (token.kind == Kind::Hex) seen << QStringLiteral("hex %1").arg(token.value);
    if (token.kind == Kind::Binary) seen << QStringLiteral("binary ") + bytes;
  }
  QCOMPARE(seen.join(u','), QStringLiteral("{,b=-12,text x,hex 4,text ,text zz,binary }{\\,},symbol 42,symbol 13,"
                                           "fs=2147483647,u=-5,text ?,}"));
}

// Qt takes long a time for long tables, so that they go on as further ones; nobody is to see that.
void RtfReaderTest::LongTablesStayWhole() {
  const QByteArray oneCell = "\\trowd\\cellx9000\\pard\\intbl x\\cell\\row\n";
  const QByteArray twoCells = "\\trowd\\cellx4000\\cellx9000\\pard\\intbl a\\cell\\pard\\intbl b\\cell\\row\n";
  const RichText text = RichText::FromRtf("{\\rtf1 " + oneCell.repeated(250) + twoCells + "\\pard end\\par}");
  const QString expected = QStringLiteral("x\n").repeated(250) + QStringLiteral("a\tb\nend");
  QCOMPARE(text.PlainText(), expected);
  QCOMPARE(RichText::FromRtf(text.Rtf()).PlainText(), expected);
}

void RtfReaderTest::TimeGrowsLinearly_data() {
  QTest::addColumn<QByteArray>("unit");
  QTest::newRow("groups") << QByteArray("{x}");
  QTest::newRow("open groups") << QByteArray("{");
  QTest::newRow("control words") << QByteArray("\\b\\i0");
  QTest::newRow("list items") << QByteArray("{\\*\\pn\\pnlvlblt}x\\par");
  QTest::newRow("rows") << QByteArray("\\trowd\\cellx900\\cellx1800\\intbl a\\cell b\\cell\\row");
  QTest::newRow("rows that differ") << QByteArray(
      "\\trowd\\cellx900\\intbl a\\cell\\row\\trowd\\cellx700\\cellx900 b\\cell c\\cell\\row");
  QTest::newRow("tab stops") << QByteArray("\\pard\\tx# x\\par");
  QTest::newRow("bytes beyond ASCII on lines of their own") << QByteArray("\xE9\n");
  QTest::newRow("borders") << QByteArray("\\pard\\brdrb\\brdrs\\brsp# x\\par");
  QTest::newRow("tables of other widths") << QByteArray("\\trowd\\cellx1#\\intbl a\\cell\\row\\pard x\\par");
}

void RtfReaderTest::TimeGrowsLinearly() {
  QFETCH(QByteArray, unit);
  const QString growth = test::GrowsTooFast(unit, [](const QByteArray& rtf) { TextOf("{\\rtf1 " + rtf); });
  QVERIFY2(growth.isEmpty(), qPrintable(growth));
}

QTEST_MAIN(RtfReaderTest)
#include "rtf_reader_test.moc"

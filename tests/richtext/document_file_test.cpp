#include "richtext/document_file.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "richtext/document_compare.h"
#include "richtext/document_page.h"
#include "richtext/docx/docx_values.h"
#include "richtext/ooxml/zip_writer.h"
#include "richtext/random_document.h"
#include "richtext/safe_document.h"
#include "richtext/xlsx/number_format.h"

using namespace snipdeck;

Q_DECLARE_METATYPE(FileFormat)
Q_DECLARE_METATYPE(PageGeometry)

namespace {

constexpr char kWord[] = "xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'";

QByteArray Docx(const QByteArray& documentPart, const QByteArray& relationships = {}) {
  ZipWriter zip;
  zip.Add(QStringLiteral("word/document.xml"), documentPart);
  if (!relationships.isEmpty()) zip.Add(QStringLiteral("word/_rels/document.xml.rels"), relationships);
  return zip.Finish().Value();
}

QByteArray Body(const QByteArray& content) {
  return QByteArray("<w:document ") + kWord + "><w:body>" + content + "</w:body></w:document>";
}

/// Of the sixteen colours of a highlighter, which are all that DOCX has; any other is shading.
void KeepKnownHighlights(QTextDocument& document) {
  QTextCursor cursor(&document);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      QTextCharFormat format = it.fragment().charFormat();
      if (!format.boolProperty(kHighlight) || WordForHighlight(format.background().color().rgb())) continue;
      format.clearProperty(kHighlight);
      cursor.setPosition(it.fragment().position());
      cursor.setPosition(it.fragment().position() + it.fragment().length(), QTextCursor::KeepAnchor);
      cursor.setCharFormat(format);
    }
  }
}

void FillSample(QTextDocument& document, const PageGeometry& page = {}) {
  QTextCursor cursor(&document);
  cursor.insertText(QStringLiteral("Grün & <gut>, office staff"));
  cursor.insertBlock();
  QTextCharFormat link;
  link.setAnchor(true);
  link.setAnchorHref(QStringLiteral("https://example.org/"));
  cursor.insertText(QStringLiteral("a link"), link);
  QTextCharFormat hidden;
  hidden.setProperty(kHiddenText, true);
  cursor.insertText(QStringLiteral("unseen"), hidden);
  // Wider than the sheet.
  QTextTableFormat wide;
  wide.setColumnWidthConstraints(QList<QTextLength>(2, QTextLength(QTextLength::FixedLength, 700)));
  QTextTable* const table = cursor.insertTable(2, 2, wide);
  for (int i = 0; i < 4; ++i)
    table->cellAt(i / 2, i % 2).firstCursorPosition().insertText(QStringLiteral("cell%1").arg(i));
  cursor.setPosition(table->lastPosition() + 1);
  cursor.insertText(QStringLiteral("last words"));
  SetPageOf(document, page);
}

/// The rectangle of all that is drawn on the first page of the text as PDF, in points.
QRectF InkOnPaper(const QByteArray& rtf) {
  constexpr double kDotsPerPoint = 4;
  const QByteArray whole = "{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\fs24 " + rtf + "}";
  const Result<RichText> text = ReadDocumentBytes(whole, FileFormat::Rtf);
  QByteArray bytes = WriteDocumentBytes(text.Value().Document(), FileFormat::Pdf).Value();
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QPdfDocument pdf;
  pdf.load(&buffer);
  QImage sheet((pdf.pagePointSize(0) * kDotsPerPoint).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter(&sheet).drawImage(0, 0, pdf.render(0, sheet.size()));
  QRect ink;
  for (int y = 0; y < sheet.height(); ++y) {
    for (int x = 0; x < sheet.width(); ++x)
      if (qGray(sheet.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
  }
  return {QPointF(ink.topLeft()) / kDotsPerPoint, QSizeF(ink.size()) / kDotsPerPoint};
}

QStringList Words(const QString& text) {
  return text.simplified().split(u' ');
}

}  // namespace

class DocumentFileTest : public QObject {
  Q_OBJECT

 private slots:
  void DocxKeepsRandomDocuments();
  void FormatsKeepTextAndPage_data();
  void FormatsKeepTextAndPage();
  void PdfPlacesTextAsItsMeasuresSay();
  void DocxHeadersAreFound();
  void StyleSheetFitsThePage();
  void DocxShowsWhatWordShows_data();
  void DocxShowsWhatWordShows();
  void BadFilesAreRefused_data();
  void BadFilesAreRefused();
  void AFailedSaveKeepsTheFile();
  void ReadingCanBeCancelled();
  void NumbersShowAsInSheets_data();
  void NumbersShowAsInSheets();
};

void DocumentFileTest::DocxKeepsRandomDocuments() {
  const QByteArray given = qgetenv("SNIPDECK_SEED");
  const quint32 first = given.isEmpty() ? 1 : given.toUInt();
  for (quint32 seed = first; seed < first + (given.isEmpty() ? 100 : 1); ++seed) {
    SafeDocument written;
    test::FillWithRandomText(written, seed, 20);
    KeepKnownHighlights(written);
    const Result<QByteArray> bytes = WriteDocumentBytes(written, FileFormat::Docx);
    const Result<RichText> read = ReadDocumentBytes(bytes.Value(), FileFormat::Docx);
    QVERIFY2(read, read ? "" : qPrintable(read.Error().text));
    const QString difference = test::FirstDifference(written, read.Value().Document());
    QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("SNIPDECK_SEED=%1 %2").arg(seed).arg(difference)));
  }
}

void DocumentFileTest::FormatsKeepTextAndPage_data() {
  constexpr PageGeometry kOwn{.width = 10000, .height = 14000, .left = 720, .top = 1000, .right = 900, .bottom = 1200};
  constexpr PageGeometry kWide{.width = 15840, .height = 12240, .left = 0, .top = 0, .right = 0, .bottom = 0};
  QTest::addColumn<FileFormat>("format");
  QTest::addColumn<PageGeometry>("page");
  const auto add = [](const char* name, FileFormat format, const PageGeometry& page) {
    QTest::addRow("%s %d", name, page.width) << format << page;
  };
  // The usual page is written down too: elsewhere another one is usual.
  for (const PageGeometry& page : {kOwn, PageGeometry()}) {
    add("rtf", FileFormat::Rtf, page);
    add("docx", FileFormat::Docx, page);
    add("xml", FileFormat::Xml, page);
    add("pdf", FileFormat::Pdf, page);
  }
  add("rtf", FileFormat::Rtf, kWide);
  add("docx", FileFormat::Docx, kWide);
  add("xml", FileFormat::Xml, kWide);
}

void DocumentFileTest::FormatsKeepTextAndPage() {
  QFETCH(FileFormat, format);
  QFETCH(PageGeometry, page);
  SafeDocument document;
  FillSample(document, page);
  const Result<QByteArray> bytes = WriteDocumentBytes(document, format);
  QVERIFY2(bytes, bytes ? "" : qPrintable(bytes.Error().text));
  const Result<RichText> read = ReadDocumentBytes(bytes.Value(), format);
  QVERIFY2(read, read ? "" : qPrintable(read.Error().text));
  QCOMPARE(Words(read.Value().PlainText()), Words(RichText::FromDocument(document).PlainText()));
  QVERIFY(read.Value().Document().rootFrame()->frameFormat().hasProperty(kPageWidth));
  PageGeometry found = PageOf(read.Value().Document());
  // PDF has sheets only.
  if (format == FileFormat::Pdf) found = {found.width, found.height, page.left, page.top, page.right, page.bottom};
  QCOMPARE(found, page);
  if (format == FileFormat::Pdf) QVERIFY(bytes.Value().contains("/URI (https://example.org/)"));
}

void DocumentFileTest::PdfPlacesTextAsItsMeasuresSay() {
  constexpr double kInch = 72;
  const auto isNear = [](double found, double meant) { return std::abs(found - meant) < 2; };
  QVERIFY(isNear(InkOnPaper("H").left(), kInch));
  QVERIFY(isNear(InkOnPaper("\\li1440 H").left(), 2 * kInch));
  QVERIFY(isNear(InkOnPaper("\\li1440\\fi-720 H").left(), 1.5 * kInch));
  QVERIFY(isNear(InkOnPaper("\\tab H").left(), 1.5 * kInch));
  QVERIFY(isNear(InkOnPaper("\\ri1440\\qr H").right(), 595 - 2 * kInch));
  QVERIFY(isNear(InkOnPaper("\\trowd\\trgaph0\\cellx5000\\intbl\\li1440 H\\cell\\row").left(), 2 * kInch));
  const double capitals = InkOnPaper("HHHHHHHHHH").width();
  QVERIFY(isNear(InkOnPaper("{\\scaps hhhhhhhhhh}").width(), 0.7 * capitals));
  QVERIFY(isNear(InkOnPaper("{\\scaps HHHHHHHHHH}").width(), capitals));

  // An empty line has its room also where Qt would hide it.
  const QByteArray table = "\\trowd\\cellx3000\\intbl H\\cell\\row\\pard ";
  constexpr double kLine = 13.8;
  QVERIFY(isNear(InkOnPaper(table + "\\par " + table).height(), InkOnPaper(table + table).height() + kLine));
  QVERIFY(isNear(InkOnPaper(table + "\\par H").height(), InkOnPaper(table + "H").height() + kLine));
}

// The first section has a header for its first page only, and the second one an empty one.
void DocumentFileTest::DocxHeadersAreFound() {
  const auto section = [](const QByteArray& references) {
    return "<w:p><w:pPr><w:sectPr xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>" +
           references + "</w:sectPr></w:pPr><w:r><w:t>text</w:t></w:r></w:p>";
  };
  const auto part = [](const QByteArray& text) {
    return QByteArray("<w:hdr ") + kWord + "><w:p><w:r><w:t>" + text + "</w:t><w:tab/></w:r></w:p><w:p><w:r><w:t>" + text +
           "</w:t></w:r></w:p></w:hdr>";
  };
  ZipWriter zip;
  zip.Add(QStringLiteral("word/document.xml"),
          Body(section("<w:headerReference w:type='first' r:id='rId1'/>") +
               section("<w:headerReference w:type='default' r:id='rId2'/><w:headerReference r:id='rId3'/>") +
               section("<w:headerReference w:type='default' r:id='rId1'/><w:footerReference r:id='gone'/>")));
  zip.Add(QStringLiteral("word/_rels/document.xml.rels"),
          "<Relationships><Relationship Id='rId1' Type='a/header' Target='header1.xml'/><Relationship Id='rId2' "
          "Type='a/header' Target='header2.xml'/><Relationship Id='rId3' Type='a/header' Target='header3.xml'/>"
          "</Relationships>");
  zip.Add(QStringLiteral("word/header1.xml"), part("first"));
  zip.Add(QStringLiteral("word/header2.xml"), part(" "));
  zip.Add(QStringLiteral("word/header3.xml"), part("head"));
  const Result<RichText> read = ReadDocumentBytes(zip.Finish().Value(), FileFormat::Docx);
  QVERIFY(read);
  const PageTexts texts = PageTextsOf(read.Value().Page());
  QCOMPARE(texts.header, QStringLiteral("head\t\nhead"));
  QCOMPARE(texts.footer, QString());
  QCOMPARE(Words(read.Value().PlainText()), Words(QStringLiteral("text text text")));
}

void DocumentFileTest::StyleSheetFitsThePage() {
  SafeDocument document;
  test::FillWithRandomText(document, 7, 10);
  const QString page = QString::fromUtf8(WriteDocumentBytes(document, FileFormat::Xml).Value());
  const QString sheet = QString::fromUtf8(WriteDocumentBytes(document, FileFormat::Css).Value());
  static const QRegularExpression kClass(QStringLiteral("class=\"(\\w+)\" style=\"([^\"]*)\""));
  int classes = 0;
  for (auto it = kClass.globalMatch(page); it.hasNext(); ++classes) {
    const QRegularExpressionMatch match = it.next();
    const qsizetype rule = sheet.indexOf(QLatin1Char('.') + match.captured(1) + QLatin1String(" {"));
    QVERIFY2(rule >= 0, qPrintable(match.captured(1)));
    const QString declarations = sheet.mid(rule, sheet.indexOf(u'}', rule) - rule).section(u'{', 1);
    QCOMPARE(declarations.simplified().remove(u' '), match.captured(2).remove(u' '));
  }
  QVERIFY(classes > 10);
}

void DocumentFileTest::DocxShowsWhatWordShows_data() {
  QTest::addColumn<QByteArray>("body");
  QTest::addColumn<QString>("text");
  QTest::newRow("changes") << QByteArray(
                                  "<w:p><w:r><w:t>a</w:t></w:r><w:del><w:r><w:delText>b</w:delText></w:r></w:del>"
                                  "<w:ins><w:r><w:t>c</w:t></w:r></w:ins></w:p>")
                           << "ac";
  QTest::newRow("field") << QByteArray(
                                "<w:p><w:r><w:fldChar w:fldCharType='begin'/></w:r><w:r><w:instrText>DATE</w:instrText>"
                                "</w:r><w:r><w:fldChar w:fldCharType='separate'/></w:r><w:r><w:t>today</w:t></w:r><w:r>"
                                "<w:fldChar w:fldCharType='end'/></w:r><w:r><w:t>!</w:t></w:r></w:p>")
                         << "today!";
  QTest::newRow("content control") << QByteArray(
                                          "<w:sdt><w:sdtPr/><w:sdtContent><w:p><w:r><w:t>in</w:t></w:r></w:p>"
                                          "</w:sdtContent></w:sdt>")
                                   << "in";
  QTest::newRow("symbol") << QByteArray("<w:p><w:r><w:sym w:font='Symbol' w:char='F061'/></w:r></w:p>") << "\u03B1";
  QTest::newRow("breaks") << QByteArray(
                                 "<w:p><w:r><w:t>a</w:t><w:br/><w:t>b</w:t><w:br w:type='page'/><w:t>c</w:t></w:r></w:p>")
                          << "a\nb\nc";
  QTest::newRow("formula") << QByteArray(
                                  "<w:p xmlns:m='http://schemas.openxmlformats.org/officeDocument/2006/math'><m:oMath><m:nary>"
                                  "<m:naryPr><m:chr m:val='\u2211'/></m:naryPr><m:sub><m:r><m:t>k</m:t></m:r></m:sub><m:sup/>"
                                  "<m:e><m:d><m:e><m:f><m:fPr><m:type m:val='noBar'/></m:fPr><m:num><m:r><m:t>n</m:t></m:r>"
                                  "</m:num><m:den><m:r><m:t>k</m:t></m:r></m:den></m:f></m:e></m:d></m:e></m:nary><m:rad>"
                                  "<m:deg/><m:e><m:r><m:t>2</m:t></m:r></m:e></m:rad></m:oMath></w:p>")
                           << "\u2211k(n k)\u221A2";
  QTest::newRow("merged cells")
      << QByteArray(
             "<w:tbl><w:tblGrid><w:gridCol w:w='900'/><w:gridCol w:w='900'/></w:tblGrid><w:tr><w:tc><w:tcPr>"
             "<w:gridSpan w:val='2'/></w:tcPr><w:p><w:r><w:t>wide</w:t></w:r></w:p></w:tc></w:tr><w:tr><w:tc><w:p><w:r>"
             "<w:t>l</w:t></w:r></w:p></w:tc><w:tc><w:p><w:r><w:t>r</w:t></w:r></w:p></w:tc></w:tr></w:tbl><w:p/>")
      << "wide\nl\tr\n";
}

void DocumentFileTest::DocxShowsWhatWordShows() {
  QFETCH(QByteArray, body);
  QFETCH(QString, text);
  const Result<RichText> read = ReadDocumentBytes(Docx(Body(body)), FileFormat::Docx);
  QVERIFY2(read, read ? "" : qPrintable(read.Error().text));
  QCOMPARE(read.Value().PlainText(), text);
}

void DocumentFileTest::BadFilesAreRefused_data() {
  using Kind = Failure::Kind;
  QTest::addColumn<FileFormat>("format");
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<Kind>("kind");
  const QByteArray good = Docx(Body("<w:p><w:r><w:t>good</w:t></w:r></w:p>"));
  const QByteArray entities =
      "<!DOCTYPE x [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'><!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;'>"
      "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;'><!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;'>]>";
  const auto add = [](const char* name, FileFormat format, const QByteArray& bytes, Kind kind) {
    QTest::newRow(name) << format << bytes << kind;
  };
  add("cut", FileFormat::Docx, good.left(good.size() / 2), Kind::Malformed);
  add("cut text", FileFormat::Docx, Docx(Body("<w:p><w:r><w:t>good").chopped(30)), Kind::Malformed);
  add("no zip", FileFormat::Docx, "{\\rtf1 not this}", Kind::Malformed);
  add("sheet as text", FileFormat::Docx, Docx("<worksheet/>"), Kind::Malformed);
  add("bomb", FileFormat::Docx, Docx(Body(QByteArray(64 * 1024 * 1024, ' '))), Kind::TooLarge);
  add("entities", FileFormat::Docx, Docx(entities + Body("<w:p><w:r><w:t>&e;</w:t></w:r></w:p>")), Kind::Malformed);
  add("entities in XML", FileFormat::Xml, entities + "<x>&e;&e;&e;&e;&e;</x>", Kind::Malformed);
  add("no XML", FileFormat::Xml, "<p>open", Kind::Malformed);
  add("text as sheet", FileFormat::Xlsx, good, Kind::Malformed);
  add("no PDF", FileFormat::Pdf, "%PDF-1.4 and no more", Kind::Malformed);
  add("no DOC", FileFormat::Doc, good, Kind::Malformed);
  add("no RTF", FileFormat::Rtf, good, Kind::Malformed);
  QFile secret(QStringLiteral(SNIPDECK_TEST_DATA "/documents/password.pdf"));
  QVERIFY(secret.open(QIODevice::ReadOnly));
  add("password", FileFormat::Pdf, secret.readAll(), Kind::Refused);
}

void DocumentFileTest::BadFilesAreRefused() {
  QFETCH(FileFormat, format);
  QFETCH(QByteArray, bytes);
  QFETCH(Failure::Kind, kind);
  const Result<RichText> read = ReadDocumentBytes(bytes, format);
  QVERIFY(!read);
  QCOMPARE(int(read.Error().kind), int(kind));
  QVERIFY(!read.Error().text.isEmpty());
}

void DocumentFileTest::AFailedSaveKeepsTheFile() {
  QTemporaryDir folder;
  const QString path = folder.filePath("text.docx");
  SafeDocument document;
  FillSample(document);
  QVERIFY(WriteDocumentFile(document, path, FileFormat::Docx));
  QVERIFY(ReadDocumentFile(path, FileFormat::Docx));
  const Outcome cancelled = WriteDocumentFile(document, path, FileFormat::Pdf, [](double) { return false; });
  QVERIFY(!cancelled && cancelled.Error().kind == Failure::Kind::Refused);
  QVERIFY(ReadDocumentFile(path, FileFormat::Docx));
  QVERIFY(!WriteDocumentFile(document, folder.path(), FileFormat::Docx));
  QCOMPARE(int(ReadDocumentFile(folder.filePath("missing"), FileFormat::Rtf).Error().kind), int(Failure::Kind::NotFound));
}

void DocumentFileTest::ReadingCanBeCancelled() {
  const QByteArray bytes = Docx(Body(QByteArray("<w:p/>").repeated(1000)));
  double last = 0;
  const auto progress = [&last](double part) { return (last = part) < 0.5; };
  QVERIFY(!ReadDocumentBytes(bytes, FileFormat::Docx, progress));
  QVERIFY(last >= 0.5 && last <= 1);
}

void DocumentFileTest::NumbersShowAsInSheets_data() {
  QTest::addColumn<double>("number");
  QTest::addColumn<QString>("format");
  QTest::addColumn<QString>("shown");
  struct Row {
    double number;
    const char* format;
    const char* shown;
  };
  static constexpr Row kRows[] = {
      {1234.5, "", "1234.5"},
      {0.1 + 0.2, "General", "0.3"},
      {1234567.891, "#,##0.00", "1,234,567.89"},
      {-5, "0.00;(0.00)", "(5.00)"},
      {-5, "0.0", "-5.0"},
      {0, "0;-0;\"none\"", "none"},
      {0.256, "0%", "26%"},
      {0.5, "#.##", ".5"},
      {7, "000", "007"},
      {12345, "0.00E+00", "1.23E+04"},
      {2.75, "# ?/?", "2 3/4"},
      {1500, "0.0,\" k\"", "1.5 k"},
      {9.5, "[$\u20AC-407] 0.00", "\u20AC 9.50"},
      {44927, "dd/mm/yyyy", "01/01/2023"},
      {44927.75, "yyyy-mm-dd hh:mm:ss", "2023-01-01 18:00:00"},
      {44927.75, "h:mm AM/PM", "6:00 PM"},
      {1.5, "[h]:mm", "36:00"},
      {44927, "d mmmm yy", "1 January 23"},
      {59, "d/m/yyyy", "28/2/1900"},
      {42, "\"No. \"0", "No. 42"},
      {5551234, "000-0000", "555-1234"},
      {5551234, "[<=9999999]###-####;(###) ###-####", "555-1234"},
      {2025551234, "[<=9999999]###-####;(###) ###-####", "(202) 555-1234"},
      {-5, "0;;", ""},
      {44927, "[$-407]d. mmmm yyyy", "1. Januar 2023"},
      {44992, "[$-409]d-mmm-yy;@", "7-Mar-23"},
      {44927, "yyyy\"\u5E74\"m\"\u6708\"d\"\u65E5\"", "2023\u5E74" "1\u6708" "1\u65E5"},
      {44927, "[$-411]gge.m.d", "2023.1.1"},
      {1.9999999, "[h]:mm:ss", "48:00:00"},
      {0.000011, "mm:ss.0", "00:01.0"},
  };
  for (const int day : {27, 50, 58, 71}) QCOMPARE(BuiltInFormat(day), BuiltInFormat(14));
  QCOMPARE(FormatCellNumber(44927.75, BuiltInFormat(78), false), "1/1/2023 18:00");
  for (const Row& row : kRows) QTest::addRow("%g %s", row.number, row.format) << row.number << QString::fromUtf8(row.format) << QString::fromUtf8(row.shown);
}

void DocumentFileTest::NumbersShowAsInSheets() {
  QFETCH(double, number);
  QFETCH(QString, format);
  QFETCH(QString, shown);
  QCOMPARE(FormatCellNumber(number, format, false), shown);
}

QTEST_MAIN(DocumentFileTest)
#include "document_file_test.moc"

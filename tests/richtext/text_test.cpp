#include <QTest>

#include "richtext/text/text_decoder.h"
#include "storage/file_types.h"

using namespace snipdeck;

/// Text files: what their bytes and their names say.
class TextTest : public QObject {
  Q_OBJECT

 private slots:
  void Decode_data();
  void Decode();
  void FormatsByName_data();
  void FormatsByName();
};

void TextTest::Decode_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("expected");
  QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9") << "café";
  QTest::newRow("UTF-8 with a mark") << QByteArray(
                                            "\xEF\xBB\xBF"
                                            "caf\xC3\xA9")
                                     << "café";
  QTest::newRow("UTF-16, little end first") << QByteArray("\xFF\xFE\xE9\0a\0", 6) << "éa";
  QTest::newRow("UTF-16, big end first") << QByteArray("\xFE\xFF\0\xE9\0a", 6) << "éa";
  QTest::newRow("UTF-16 without a mark") << QByteArray("t\0e\0x\0t\0", 8) << "text";
  QTest::newRow("UTF-32") << QByteArray("\xFF\xFE\0\0\xE9\0\0\0", 8) << "é";
  QTest::newRow("windows-1252") << QByteArray("\x80 caf\xE9 \x93q\x94") << "€ café “q”";
  QTest::newRow("UTF-32 without a mark") << QByteArray("\0\0\0a\0\1\xF6\0", 8) << QStringLiteral("a\U0001F600");
  QTest::newRow("UTF-16 without a zero in front") << QByteArray("\x65\xE5\x67\x2C\0\n\x8A\x9E\xFF\x01", 10) << "日本\n語！";
  QTest::newRow("Japanese mail") << QByteArray("\x1B$B$3$s\x1B(B") << "こん";
  QTest::newRow("Russian") << QByteArray("\xCF\xF0\xE8\xE2\xE5\xF2, \xEC\xE8\xF0") << "Привет, мир";
  QTest::newRow("KOI8") << QByteArray("\xF0\xD2\xC9\xD7\xC5\xD4, \xCD\xC9\xD2") << "Привет, мир";
  QTest::newRow("declared") << QByteArray("<?xml version='1.0' encoding='iso-8859-2'?><a>\xE8</a>") << "<?xml version='1.0' encoding='iso-8859-2'?><a>č</a>";
  // Words of one accent tell nothing.
  for (const char* word : {"Gr\xFCn", "caf\xE9", "fa\xE7" "ade\n", "It\x92s", "Se\xF1or Mu\xF1oz", "\xC4\xD6\xDC"})
    QTest::addRow("western %s", qPrintable(DecodeWindows1252(word))) << QByteArray(word) << DecodeWindows1252(word);
  QTest::newRow("empty") << QByteArray() << "";
  QTest::newRow("a mark alone") << QByteArray("\xFF\xFE", 2) << "";
}

void TextTest::Decode() {
  QFETCH(QByteArray, bytes);
  QFETCH(QString, expected);
  QCOMPARE(DecodeText(bytes), expected);
}

void TextTest::FormatsByName_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("narrow");
  QTest::addColumn<int>("wide");
  QTest::addColumn<int>("save");
  QTest::newRow("rtf") << "a.Rtf" << 5 << 5 << 5;
  QTest::newRow("no dot") << "artf" << 1 << 1 << 5;
  QTest::newRow("doc") << "a.DOC" << 9 << 9 << 9;
  QTest::newRow("docx") << "a.docx" << 13 << 13 << 13;
  QTest::newRow("htm") << "a.HTM" << 4 << 4 << 4;
  QTest::newRow("xhtml") << "a.xhtml" << 1 << 1 << 4;
  QTest::newRow("asp") << "a.asp" << 1 << 4 << 1;
  QTest::newRow("cgi") << "A.CGI" << 1 << 4 << 1;
  QTest::newRow("xml") << "a.xml" << 1 << 1 << 10;
  QTest::newRow("css") << "a.css" << 1 << 1 << 11;
  QTest::newRow("pdf") << "a.pdf" << 1 << 1 << 12;
  QTest::newRow("xlsx") << "a.xlsx" << 1 << 1 << 15;
  QTest::newRow("other") << "a.csv" << 1 << 1 << 1;
  QTest::newRow("none") << "" << 1 << 1 << 1;
}

void TextTest::FormatsByName() {
  QFETCH(QString, name);
  QTEST(static_cast<int>(LoadFormatForName(name, false)), "narrow");
  QTEST(static_cast<int>(LoadFormatForName(name, true)), "wide");
  QTEST(static_cast<int>(SaveFormatForName(name)), "save");
}

QTEST_MAIN(TextTest)
#include "text_test.moc"

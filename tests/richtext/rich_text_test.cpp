#include "richtext/rich_text.h"

#include <QImage>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include "richtext/document_compare.h"
#include "richtext/format_properties.h"
#include "richtext/random_document.h"
#include "richtext/safe_document.h"

using namespace snipdeck;

/// One text, put into other texts.
class RichTextTest : public QObject {
  Q_OBJECT

 private slots:
  void PutIntoAnEmptyText();
  void PutIntoTheMiddleOfAParagraph_data() { AddBothKinds(); }
  void PutIntoTheMiddleOfAParagraph();
  void PutInIsOneUndoStep_data() { AddBothKinds(); }
  void PutInIsOneUndoStep();
  void PutIntoACellKeepsTheCell_data() { AddBothKinds(); }
  void PutIntoACellKeepsTheCell();
  void ListsGoOnAsLists();
  void PartOfADocument();
  void PlainText_data();
  void PlainText();

 private:
  static void AddBothKinds();
};

namespace {

/// A text that is still as the reader of RTF left it takes another way into documents than one that is a document.
RichText AsIfJustRead(const RichText& text) {
  return RichText::FromRtf(text.Rtf());
}

RichText AsAsked(const RichText& text) {
  QFETCH(bool, justRead);
  return justRead ? AsIfJustRead(text) : text;
}

RichText TwoParagraphs() {
  SafeDocument document;
  QTextCursor cursor(&document);
  QTextBlockFormat right, centred;
  right.setAlignment(Qt::AlignRight);
  centred.setAlignment(Qt::AlignHCenter);
  cursor.setBlockFormat(right);
  cursor.insertText("one");
  cursor.insertBlock(centred);
  cursor.insertText("two");
  return RichText::FromDocument(document);
}

Qt::Alignment AlignmentOf(const QTextDocument& document, int block) {
  return document.findBlockByNumber(block).blockFormat().alignment();
}

}  // namespace

void RichTextTest::AddBothKinds() {
  QTest::addColumn<bool>("justRead");
  QTest::newRow("from a document") << false;
  QTest::newRow("just read") << true;
}

void RichTextTest::PutIntoAnEmptyText() {
  for (quint32 seed = 1; seed <= 60; ++seed) {
    SafeDocument source;
    test::FillWithRandomText(source, seed, 12);
    QTextDocument target;
    target.setDefaultFont(source.defaultFont());
    QTextCursor cursor(&target);
    RichText::FromDocument(source).InsertAt(cursor);
    const QString difference = test::FirstDifference(source, target);
    QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("seed %1 %2").arg(seed).arg(difference)));
    QVERIFY(cursor.atEnd());

    const RichText read = AsIfJustRead(RichText::FromDocument(source));
    QTextDocument second;
    QTextCursor inSecond(&second);
    read.InsertAt(inSecond);
    QVERIFY(inSecond.atEnd());
    QVERIFY(!read.IsEmpty() && read.Length() > 0);
    const QString text = read.PlainText();
    const QString missed = test::FirstDifference(read.Document(), second);
    QVERIFY2(missed.isEmpty(), qPrintable(QStringLiteral("seed %1 %2").arg(seed).arg(missed)));
    QCOMPARE(text, read.PlainText());
  }
}

void RichTextTest::PutIntoTheMiddleOfAParagraph() {
  QTextDocument target;
  target.setPlainText("before after");
  QTextCursor cursor(&target);
  cursor.setPosition(7);
  AsAsked(TwoParagraphs()).InsertAt(cursor);
  QCOMPARE(target.toPlainText(), "before one\ntwoafter");
  QCOMPARE(cursor.position(), 14);
  QVERIFY(!(AlignmentOf(target, 0) & Qt::AlignRight));
  QVERIFY(!(AlignmentOf(target, 1) & Qt::AlignHCenter));

  target.setPlainText("before");
  cursor.movePosition(QTextCursor::End);
  AsAsked(TwoParagraphs()).InsertAt(cursor);
  QVERIFY(!(AlignmentOf(target, 0) & Qt::AlignRight));
  QVERIFY(AlignmentOf(target, 1) & Qt::AlignHCenter);  // nothing follows that could lose its own format

  target.clear();
  AsAsked(TwoParagraphs()).InsertAt(cursor);
  QVERIFY(AlignmentOf(target, 0) & Qt::AlignRight);
}

void RichTextTest::PutInIsOneUndoStep() {
  SafeDocument source;
  test::FillWithRandomText(source, 3, 30);
  QTextDocument target;
  target.setPlainText("keep this, not this");
  QTextCursor cursor(&target);
  cursor.setPosition(11);
  cursor.setPosition(19, QTextCursor::KeepAnchor);
  AsAsked(RichText::FromDocument(source)).InsertAt(cursor);
  target.undo();
  QCOMPARE(target.toPlainText(), "keep this, not this");
}

void RichTextTest::PutIntoACellKeepsTheCell() {
  QTextDocument target;
  QTextCursor cursor(&target);
  QTextTable* const table = cursor.insertTable(2, 2);
  table->mergeCells(0, 0, 1, 2);
  QTextCursor inside = table->cellAt(0, 0).firstCursorPosition();
  AsAsked(TwoParagraphs()).InsertAt(inside);
  QCOMPARE(table->cellAt(0, 1).columnSpan(), 2);
  QCOMPARE(table->cellAt(1, 0).firstCursorPosition().block().text(), QString());
}

void RichTextTest::ListsGoOnAsLists() {
  const RichText text = RichText::FromHtml("<ol><li>a<li>b<li>c</ol>");
  QTextDocument target;
  QTextCursor cursor(&target);
  text.InsertAt(cursor);
  cursor.insertBlock(QTextBlockFormat());
  text.InsertAt(cursor);
  QCOMPARE(target.findBlockByNumber(2).textList()->itemText(target.findBlockByNumber(2)), "3.");
  QCOMPARE(target.findBlockByNumber(3).textList()->itemText(target.findBlockByNumber(3)), "1.");
}

void RichTextTest::PartOfADocument() {
  SafeDocument document;
  document.setHtml("<p>first <b>bold</b></p><table><tr><td>in cell</td></tr></table><p>last</p>");
  QCOMPARE(RichText::FromDocument(document, 6, 10).PlainText(), "bold");
  QVERIFY(RichText::FromDocument(document, 6, 10).Rtf().contains("\\b bold"));
  const QTextBlock cell = document.findBlockByNumber(1);
  QCOMPARE(RichText::FromDocument(document, cell.position() + 3, cell.position() + 7).PlainText(), "cell");
  QVERIFY(RichText::FromDocument(document, 4, 4).IsEmpty());
}

void RichTextTest::PlainText_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");
  QTest::newRow("empty") << ""
                         << "";
  QTest::newRow("line ends of all kinds") << "a\r\nb\rc\nd"
                                          << "a\nb\nc\nd";
  QTest::newRow("an empty last line") << "a\n"
                                      << "a\n";
  QTest::newRow("forbidden characters") << QStringLiteral("a%1b\x1b%2").arg(QChar(0)).arg(QChar(0xFDD0)) + QChar(0xD800)
                                        << "ab";
  QTest::newRow("outside the first plane")
      << QString::fromUcs4(U"\U0001F600\u00A0") << QString::fromUcs4(U"\U0001F600\u00A0");
}

void RichTextTest::PlainText() {
  QFETCH(QString, text);
  QFETCH(QString, expected);
  QCOMPARE(RichText::FromPlainText(text).PlainText(), expected);
}

QTEST_MAIN(RichTextTest)
#include "rich_text_test.moc"

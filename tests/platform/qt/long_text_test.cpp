#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextFrame>

#include "capture/last_paragraph.h"
#include "platform/qt/layout/paragraph_layout.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

// Some lines long, so that heights can only be guessed.
QString Paragraphs(int count) {
  QString text;
  for (int i = 0; i < count; ++i) text += QString("word%1 ").arg(i % 10).repeated(1 + i * 7 % 60) + '\n';
  return text;
}

QImage Painted(QTextDocument& document) {
  QImage image(300, 1200, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  document.drawContents(&painter);
  return image;
}

bool IsLong(const RichTextControl& control) {
  return qobject_cast<ParagraphLayout*>(control.document()->documentLayout());
}

struct Shown {
  RichTextControl control;

  explicit Shown(const QString& text) {
    control.resize(300, 200);
    control.show();
    control.SetText(text);
    Settle();
  }
  static void Settle() {
    for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  }
  QScrollBar& Bar() { return *control.verticalScrollBar(); }
  /// Where the character at `position` is seen.
  int Height(int position) {
    QTextCursor cursor(control.document());
    cursor.setPosition(position);
    return control.cursorRect(cursor).top();
  }
};

}  // namespace

class LongTextTest : public QObject {
  Q_OBJECT

 private slots:
  void BothLayoutsShowTheSame_data() {
    QTest::addColumn<QString>("html");
    const QString words = QString("some words ").repeated(40);
    QTest::newRow("wrapped") << "<p>" + words + "<b>bold</b></p><p></p><p>" + words + "</p>";
    QTest::newRow("lists") << "<ul><li>one<li>" + words + "<ul><li>deep</ul></ul><ol type=I><li>a<li>b</ol>";
    QTest::newRow("aligned") << "<p align=right>" + words + "</p><p align=justify>" + words + "<p align=center>x";
    QTest::newRow("indented") << "<p style='margin:12px 30px 7px 20px;text-indent:25px'>" + words + "</p><p>end";
    QTest::newRow("line heights") << "<p style='line-height:150%'>" + words + "<p style='line-height:30px'>" + words;
    QTest::newRow("sizes") << "<h1>Head</h1><p>small <span style='font-size:30pt'>big</span> " + words + "<hr>end";
    QTest::newRow("right to left") << "<p dir=rtl>" + QString(QChar(0x5D0)).repeated(9) + " abc " + words + "</p>";
    QTest::newRow("picture") << "<p>a <img src='data:image/gif;base64,R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIB"
                                "RAA7' width=400 height=30> b</p>";
    QTest::newRow("background") << "<p style='background:#ffcc00'>" + words + "</p><p>x <u>y</u></p>";
  }

  // Whatever is placed twice must come to the same place.
  void BothLayoutsShowTheSame() {
    QFETCH(QString, html);
    QWidget device;
    QTextDocument usual;
    usual.setDocumentMargin(3);
    usual.setHtml(html);
    const std::unique_ptr<QTextDocument> other(usual.clone());
    other->setDocumentLayout(new ParagraphLayout(other.get()));
    for (QTextDocument* document : {&usual, other.get()}) {
      document->documentLayout()->setPaintDevice(&device);
      document->setTextWidth(300);
    }
    const QImage seen = Painted(usual);
    const QImage seenToo = Painted(*other);
    QTextBlock twin = other->firstBlock();
    for (QTextBlock block = usual.firstBlock(); block.isValid(); block = block.next(), twin = twin.next()) {
      QCOMPARE(other->documentLayout()->blockBoundingRect(twin), usual.documentLayout()->blockBoundingRect(block));
      QCOMPARE(twin.layout()->lineCount(), block.layout()->lineCount());
      for (int i = 0; i < block.layout()->lineCount(); ++i)
        QCOMPARE(twin.layout()->lineAt(i).naturalTextRect(), block.layout()->lineAt(i).naturalTextRect());
    }
    QCOMPARE(other->size(), usual.size());
    QVERIFY(seenToo == seen);
  }

  void OnlyLongTextsOfParagraphsTakeTheOtherLayout() {
    Shown shown(Paragraphs(3000));
    RichTextControl& control = shown.control;
    QVERIFY(IsLong(control));
    const QSignalSpy changes(control.document(), &QTextDocument::contentsChange);
    control.resize(350, 250);
    Shown::Settle();
    QVERIFY(changes.isEmpty());
    control.AppendRichText(RichText::FromHtml("<table><tr><td>cell</td></tr></table>"));
    QVERIFY(!IsLong(control));
    control.undo();
    QTRY_VERIFY(IsLong(control));
    QVERIFY(control.Text() == Paragraphs(3000));
    control.SetText("short");
    QVERIFY(!IsLong(control));
    // What is typed comes unannounced.
    control.textCursor().insertText(Paragraphs(3000));
    QTRY_VERIFY(IsLong(control));
  }

  void WhatIsSeenStaysWhileHeightsAreFound() {
    Shown shown(Paragraphs(3000));
    shown.control.moveCursor(QTextCursor::End);
    Shown::Settle();
    const int end = shown.control.document()->characterCount() - 1;
    QVERIFY(shown.Height(end) < shown.control.viewport()->height());
    for (int i = 0; i < 30; ++i) {
      const int seen = shown.control.cursorForPosition(QPoint(0, 5)).position();
      const int before = shown.Height(seen);
      shown.Bar().setValue(shown.Bar().value() - 70);
      Shown::Settle();
      QCOMPARE(shown.Height(seen), before + 70);
    }
    // The same paragraph is at the top when the lines have another length.
    const auto topBlock = [&] { return shown.control.cursorForPosition(QPoint(0, 0)).blockNumber(); };
    const int top = topBlock();
    shown.control.resize(500, 200);
    Shown::Settle();
    QVERIFY(std::abs(topBlock() - top) <= 1);
  }

  void AVeryLongCopyIsFilledInBitByBit_data() {
    QTest::addColumn<QByteArray>("rtf");
    const QByteArray paragraphs = Paragraphs(3000).replace('\n', "\\par\n").toUtf8();
    QTest::newRow("plain") << QByteArray();
    QTest::newRow("paragraphs") << "{\\rtf1 {\\b bold} \\qc " + paragraphs + "\\ql {\\i italic}" + paragraphs + "}";
  }

  void AVeryLongCopyIsFilledInBitByBit() {
    QFETCH(QByteArray, rtf);
    const RichText copy = rtf.isEmpty() ? RichText::FromPlainText(Paragraphs(6000)) : RichText::FromRtf(rtf);
    const auto append = [&copy](RichTextControl& control) {
      control.AppendText("before");
      control.AppendRichText(copy);
      control.AppendText("\n");
      ResetLastParagraph(control);
      control.AppendText("behind");
    };
    RichTextControl expected;
    append(expected);

    // However it comes to its end: by itself, because somebody asks, or because of a key.
    for (const QString end : {"by itself", "asked", "key"}) {
      Shown shown("");
      RichTextControl& control = shown.control;
      control.document()->setUndoRedoEnabled(false);
      append(control);
      QVERIFY(control.IsFilling());
      const int length = expected.document()->characterCount();
      QVERIFY(control.AsItStands().document()->characterCount() < length);
      if (end == "by itself") QTRY_VERIFY(!control.IsFilling());
      if (end == "key") QTest::keyClick(&control, Qt::Key_Left);
      QCOMPARE(control.AsItStands().document()->characterCount(), end == "asked" ? control.document()->characterCount() : length);
      QCOMPARE(control.textCursor().position(), length - (end == "key" ? 2 : 1));
      QVERIFY(RichText::FromDocument(*control.document()).Rtf() == RichText::FromDocument(*expected.document()).Rtf());
    }
  }

  void EveryPlaceIsFoundAgain() {
    Shown shown(Paragraphs(3000));
    RichTextControl& control = shown.control;
    for (const int position : {0, 1, 1000, 150'000, 299'999, control.document()->characterCount() - 1}) {
      QTextCursor cursor(control.document());
      cursor.setPosition(position);
      control.setTextCursor(cursor);
      control.ensureCursorVisible();
      Shown::Settle();
      const QRect caret = control.cursorRect();
      QVERIFY(control.viewport()->rect().contains(caret.center()));
      QCOMPARE(control.cursorForPosition(caret.center()).position(), position);
    }
    control.SetZoomValue(200);
    Shown::Settle();
    control.ensureCursorVisible();
    QVERIFY(control.viewport()->rect().intersects(control.cursorRect()));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::LongTextTest)
#include "long_text_test.moc"

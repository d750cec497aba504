#include "platform/qt/rich_text_control.h"

#include "fakes/fake_clipboard.h"

#include "platform/qt/endless_word.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

namespace snipdeck {
namespace {

RichText Html(const QByteArray& html) {
  return RichText::FromHtml(html);
}

void SelectAll(RichTextControl& control) {
  control.SetSelStart(0);
  control.SetSelLength(-1);
}

void PutOnClipboard(const QList<std::pair<const char*, QByteArray>>& forms) {
  auto* const data = new QMimeData;
  for (const auto& [type, bytes] : forms) data->setData(QLatin1String(type), bytes);
  QGuiApplication::clipboard()->setMimeData(data);
}

struct Attribute {
  int (RichTextControl::*get)() const;
  void (RichTextControl::*set)(int);
};

}  // namespace
}  // namespace snipdeck

Q_DECLARE_METATYPE(snipdeck::Attribute)

namespace snipdeck {

class RichTextControlTest : public QObject {
  Q_OBJECT

 private slots:
  void EndlessWordsAreBrokenAnywhere() {
    const QString data(kEndlessWord, u'x');
    QVERIFY(HasEndlessWord(data));
    QVERIFY(HasEndlessWord("in a " + data));
    QVERIFY(HasEndlessWord(QString("word ").repeated(3000) + data + " and more"));
    QVERIFY(!HasEndlessWord(data.left(kEndlessWord - 1) + ' ' + data.left(kEndlessWord - 1)));
    QVERIFY(!HasEndlessWord(QString(20000, QChar(0x4E00))));

    RichTextControl control;
    const auto ordinary = control.wordWrapMode();
    control.SetText("ordinary");
    control.AppendText("\n" + data);
    QCOMPARE(control.wordWrapMode(), QTextOption::WrapAnywhere);
    control.SetText("ordinary");
    QCOMPARE(control.wordWrapMode(), ordinary);
    control.SetSelRichText(RichText::FromPlainText(data));
    QCOMPARE(control.wordWrapMode(), QTextOption::WrapAnywhere);
  }

  void PasteAsksNobodyButItsSource() {
    FakeClipboard source;
    RichTextControl control;
    control.SetPasteSource(&source);
    QGuiApplication::clipboard()->setText("from Qt's clipboard");
    QTest::keySequence(&control, QKeySequence(QKeySequence::Paste));
    QCOMPARE(control.Text(), QString());
    source.HoldRtf("{\\rtf1 some {\\b bold}}", "text");
    QTest::keySequence(&control, QKeySequence(QKeySequence::Paste));
    QCOMPARE(control.Text(), QString("some bold"));
    QCOMPARE(control.Bold(), -1);
    source.HoldText(" and plain");
    control.SetText("");
    control.ClipboardAction(3);
    QCOMPARE(control.Text(), QString(" and plain"));
  }

  void SelectionsAreClampedToTheText() {
    RichTextControl control;
    control.SetText("one\ntwo\nthree");
    control.SetSelStart(4);
    QCOMPARE(control.SelLength(), 0);
    control.SetSelLength(3);
    QCOMPARE(control.SelText(), QString("two"));
    QCOMPARE(control.SelStart(), 4);
    for (const int toTheEnd : {-1, 9, 10, 1000}) {
      control.SetSelLength(toTheEnd);
      QCOMPARE(control.SelText(), QString("two\nthree"));
    }
    control.SetSelStart(99);
    QCOMPARE(control.SelStart(), 13);
    control.SetSelStart(-5);
    QCOMPARE(control.SelStart(), 0);
    QCOMPARE(control.SelLength(), 0);
  }

  void IndexesIntoTheTextArePositions() {
    RichTextControl control;
    control.SetSelRichText(Html("<p>a&nbsp;b<br>c\xF0\x9F\x98\x80</p><ul><li>x</li></ul><p>end</p>"));
    const QString text = control.Text();
    QVERIFY(text.startsWith(u"a\u00A0b\nc\U0001F600\n"));
    for (int start = 0; start <= text.size(); ++start) {
      control.SetSelStart(start);
      control.SetSelLength(3);
      // Half of a character that takes two units cannot be selected.
      if (control.SelStart() == start && control.SelLength() == 3) QCOMPARE(control.SelText(), text.mid(start, 3));
    }
    control.AppendRichText(Html("<table><tr><td>p</td><td>q</td></tr></table><p>after</p>"));
    QCOMPARE(control.Text().size(), control.document()->characterCount() - 1);
  }

  void EmptyingForgetsFormatsPicturesAndHistory() {
    RichTextControl control;
    control.document()->addResource(QTextDocument::ImageResource, QUrl("kept"), QImage(4, 4, QImage::Format_RGB32));
    control.SetSelRichText(Html("<h1 align='right'><b><font size='7'>big</font></b></h1>"));
    control.SetText("");
    control.SetSelText("plain");
    QCOMPARE(control.Text(), QString("plain"));
    QVERIFY(!control.currentCharFormat().hasProperty(QTextFormat::FontWeight));
    QVERIFY(!control.currentCharFormat().hasProperty(QTextFormat::FontPointSize));
    QVERIFY(!control.textCursor().blockFormat().alignment().testFlag(Qt::AlignRight));
    QCOMPARE(control.document()->resource(QTextDocument::ImageResource, QUrl("kept")).value<QImage>().width(), 16);

    control.SetText("");
    QVERIFY(!control.document()->isUndoAvailable());
    QVERIFY(control.document()->isUndoRedoEnabled());
  }

  void ReplacingLeavesTheCaretBehindTheText() {
    RichTextControl control;
    control.SetText("one two three");
    control.SetSelStart(4);
    control.SetSelLength(3);
    control.SetSelText("2\r\n2");
    QCOMPARE(control.Text(), QString("one 2\n2 three"));
    QCOMPARE(control.SelStart(), 7);
    control.SetSelRichText(Html("<b>!</b>"));
    QCOMPARE(control.Text(), QString("one 2\n2! three"));
    QCOMPARE(control.SelStart(), 8);
    control.undo();
    control.undo();
    QCOMPARE(control.Text(), QString("one two three"));
  }

  void AppendedPlainTextDoesNotInheritTheFormatBeforeIt() {
    RichTextControl control;
    control.AppendRichText(Html("<b>bold</b>"));
    control.SetSelStart(1);
    control.AppendText("\nplain");
    QCOMPARE(control.Text(), QString("bold\nplain"));
    QCOMPARE(control.SelStart(), 10);
    QCOMPARE(control.Bold(), 0);
    control.SetSelStart(0);
    control.SetSelLength(4);
    QCOMPARE(control.Bold(), -1);
  }

  void ANewTextShowsFromItsStart() {
    QWidget window;
    QLineEdit other(&window);
    RichTextControl control(&window);
    control.setGeometry(0, 30, 200, 60);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    const RichText text = RichText::FromPlainText(QString("line\n").repeated(50));
    control.SetSelRichText(text);
    QCOMPARE(control.verticalScrollBar()->value(), 0);
    SelectAll(control);
    QCOMPARE(control.verticalScrollBar()->value(), 0);
    control.AppendText("more");
    QVERIFY(control.viewport()->rect().contains(control.cursorRect()));
    control.setFocus();
    control.SetText("");
    control.SetSelRichText(text);
    QCOMPARE(control.verticalScrollBar()->value(), 0);
    for (const int position : {0, 200}) {
      control.SetSelStart(position);
      QVERIFY(control.viewport()->rect().contains(control.cursorRect()));
    }
    SelectAll(control);
    control.ClipboardAction(2);
    control.SetText("");
    control.ClipboardAction(3);
    QVERIFY(control.viewport()->rect().contains(control.cursorRect()));
  }

  void AttributesToggleByNegation_data() {
    QTest::addColumn<Attribute>("attribute");
    QTest::addColumn<QByteArray>("html");
    const auto row = [](const char* name, const Attribute& attribute, const char* html) {
      QTest::newRow(name) << attribute << QByteArray(html);
    };
    row("bold", {&RichTextControl::Bold, &RichTextControl::SetBold}, "<b>ab</b>cd<p>ef</p>");
    row("italic", {&RichTextControl::Italic, &RichTextControl::SetItalic}, "<i>ab</i>cd<p>ef</p>");
    row("underline", {&RichTextControl::Underline, &RichTextControl::SetUnderline}, "<u>ab</u>cd<p>ef</p>");
    row("strikeout", {&RichTextControl::Strikeout, &RichTextControl::SetStrikeout}, "<s>ab</s>cd<p>ef</p>");
  }

  void AttributesToggleByNegation() {
    QFETCH(const Attribute, attribute);
    QFETCH(const QByteArray, html);
    RichTextControl control;
    const auto get = [&] { return (control.*attribute.get)(); };
    const auto toggle = [&] { (control.*attribute.set)(~get()); };
    control.SetSelRichText(RichText::FromHtml(html));

    control.SetSelStart(0);
    control.SetSelLength(2);
    QCOMPARE(get(), -1);
    SelectAll(control);
    QCOMPARE(get(), 0);  // a mixed selection becomes whole first
    toggle();
    QCOMPARE(get(), -1);
    toggle();
    QCOMPARE(get(), 0);

    control.SetSelStart(1);
    toggle();
    QCOMPARE(get(), -1);
    control.SetSelText("typed");
    control.SetSelStart(1);
    control.SetSelLength(5);
    QCOMPARE(get(), -1);
  }

  void CopyingOffersEveryForm() {
    RichTextControl control;
    control.SetSelRichText(Html("plain <b>bold</b>"));
    control.SetSelStart(6);
    control.SetSelLength(-1);
    control.ClipboardAction(2);
    const QMimeData& offered = *QGuiApplication::clipboard()->mimeData();
    QCOMPARE(offered.text(), QString("bold"));
    QVERIFY(offered.html().contains("bold") && !offered.html().contains("plain"));
    const QByteArray rtf = offered.data("text/rtf");
    QVERIFY(rtf.startsWith("{\\rtf1") && rtf.contains("\\b") && rtf.contains("bold"));
    QCOMPARE(offered.data("application/rtf"), rtf);
    QCOMPARE(offered.data("text/richtext"), rtf);
    control.ClipboardAction(1);
    QCOMPARE(control.Text(), QString("plain "));
    control.ClipboardAction(3);
    QCOMPARE(control.Text(), QString("plain bold"));
  }

  void PastingTakesTheRichestForm() {
    const QByteArray rtf = "{\\rtf1\\ansi from {\\b rtf}}";
    const auto pasted = [](const QList<std::pair<const char*, QByteArray>>& forms) {
      RichTextControl control;
      PutOnClipboard(forms);
      if (control.canPaste()) control.ClipboardAction(3);
      return control.Text();
    };
    QCOMPARE(pasted({{"text/plain", "text"}, {"text/html", "<i>html</i>"}, {"application/rtf", rtf}}),
             QString("from rtf"));
    QCOMPARE(pasted({{"text/plain", "text"}, {"text/html", "<i>html</i>"}}), QString("html"));
    QCOMPARE(pasted({{"text/plain", "text"}, {"text/richtext", "<bold>mail</bold>"}}), QString("text"));
    QCOMPARE(pasted({{"image/png", "no text"}}), QString());
  }

  void RtfTravelsBothWays() {
    RichTextControl source;
    QCOMPARE(source.SelRtf(), QByteArray());
    source.SetSelRichText(Html("<p>one <b>two</b></p><p><i>three</i></p>"));
    SelectAll(source);
    RichTextControl target;
    target.SetText("[]");
    target.SetSelStart(1);
    target.SetSelRtf(source.SelRtf());
    QCOMPARE(target.Text(), QString("[one two\nthree]"));
    target.SetSelStart(5);
    target.SetSelLength(3);
    QCOMPARE(target.Bold(), -1);
    target.SetSelStart(9);
    target.SetSelLength(5);
    QCOMPARE(target.Italic(), -1);
    QCOMPARE(target.Bold(), 0);
  }

  void OptionsOutOfRangeAreIgnored() {
    RichTextControl control;
    control.SetControlOption(0, 3);
    for (const int outside : {-1, 16, 1000}) control.SetControlOption(outside, 7);
    QCOMPARE(control.ControlOption(0), 3);
    QCOMPARE(control.ControlOption(15), 0);
    QCOMPARE(control.ControlOption(16), 0);
  }

  // With a table in it the text is Qt's to place, which is slow.
  void HiddenTextIsNotPlacedBeforeItIsShown() {
    RichTextControl control;
    control.resize(300, 200);
    control.show();
    const QByteArray page = "<p>" + QByteArray(80, 'x') + "</p>";
    control.SetSelRichText(Html("<table><tr><td>cell</td></tr></table>" + page.repeated(20000)));
    const auto lastLines = [&] { return control.document()->lastBlock().layout()->lineCount(); };
    QCOMPARE(lastLines(), 0);  // goes on between the user's events
    control.hide();
    control.AppendText("more");
    QCOMPARE(lastLines(), 0);
    control.resize(400, 200);
    control.show();
    QTRY_VERIFY(lastLines() > 0);
    QCOMPARE(control.document()->textWidth(), double(control.viewport()->width()));
    control.hide();
    control.AppendText("\nmore");
    QCOMPARE(lastLines(), 1);  // what was finished stays so, and shows at once
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::RichTextControlTest)
#include "rich_text_control_test.moc"

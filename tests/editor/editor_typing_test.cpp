#include <QInputMethodEvent>
#include <QTextTable>

#include "editor/editor_stage.h"
#include "editor/text_commands.h"

namespace snipdeck {

using namespace Qt::StringLiterals;

class EditorTypingTest : public QObject {
  Q_OBJECT

 private:
  /// "|" in `text` is the caret, and two of them enclose the selection.
  static void Put(RichTextControl& control, QString text) {
    const auto begin = static_cast<int>(text.indexOf(u'|'));
    text.remove(begin, 1);
    const auto end = static_cast<int>(text.indexOf(u'|'));
    if (end >= 0) text.remove(end, 1);
    control.SetText(text);
    control.SetSelStart(begin);
    if (end >= 0) control.SetSelLength(end - begin);
  }
  static QString Seen(const RichTextControl& control) { return control.Text().insert(control.SelStart(), u'|'); }

 private slots:
  void QuotationMarksFollowWhatStandsBefore_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const QString& before, const QString& typed, const QString& after) {
      QTest::newRow(name) << before << typed << after;
    };
    row("at the start", u"|"_s, u"\""_s, u"\u201C|"_s);
    row("at the start, single", u"|x"_s, u"'"_s, u"\u2018|x"_s);
    row("behind a letter", u"say|"_s, u"\""_s, u"say\u201D|"_s);
    row("apostrophe", u"don|"_s, u"'t"_s, u"don\u2019t|"_s);
    row("a whole word", u"he said |"_s, u"\"no\""_s, u"he said \u201Cno\u201D|"_s);
    row("nested", u"|"_s, u"\"'a'\""_s, u"\u201C\u2018a\u2019\u201D|"_s);
    row("nested the other way", u"|"_s, u"'\"a\"'"_s, u"\u2018\u201Ca\u201D\u2019|"_s);
    row("behind a straight one", u"\"|"_s, u"'"_s, u"\"\u2018|"_s);
    row("the same kind again", u"\u201C|"_s, u"\""_s, u"\u201C\u201D|"_s);
    row("brackets", u"(|"_s, u"\""_s, u"(\u201C|"_s);
    row("square brackets", u"[|"_s, u"'"_s, u"[\u2018|"_s);
    row("braces close", u"{|"_s, u"'"_s, u"{\u2019|"_s);
    row("behind a tab", u"a\t|"_s, u"\""_s, u"a\t\u201C|"_s);
    row("in a new paragraph", u"a\n|b"_s, u"'"_s, u"a\n\u2018|b"_s);
    row("in place of a selection", u"ab|cd|"_s, u"\""_s, u"ab\u201D|"_s);
    row("behind a pair of surrogates", u"\U0001F600|"_s, u"'"_s, u"\U0001F600\u2019|"_s);
    row("no mark of ours", u"a|"_s, u"`"_s, u"a`|"_s);
  }
  void QuotationMarksFollowWhatStandsBefore() {
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, after);
    EditorStage stage;
    stage.Open();
    Put(stage.Text(), before);
    QTest::keyClicks(&stage.Text(), typed);
    QCOMPARE(Seen(stage.Text()), after);
    QCOMPARE(stage.Document().ChangedMark(), 1);

    // The same from an input method, in one piece behind what it composed.
    Put(stage.Text(), before);
    QInputMethodEvent composing(QStringLiteral("composed"), {});
    QCoreApplication::sendEvent(&stage.Text(), &composing);
    QInputMethodEvent commit;
    commit.setCommitString(typed);
    QCoreApplication::sendEvent(&stage.Text(), &commit);
    QCOMPARE(Seen(stage.Text()), after);
  }

  void MarkTakesTheFormatOfItsPlace() {
    EditorStage stage;
    stage.Open();
    stage.Text().SetBold(1);
    QTest::keyClicks(&stage.Text(), QStringLiteral("\"a\""));
    stage.Text().SetSelStart(0);
    stage.Text().SetSelLength(-1);
    QVERIFY(stage.Text().Bold() != 0);
    stage.Text().undo();
    QVERIFY(stage.Text().Text().size() < 3);
  }

  void TabNeverReplacesASelection() {
    EditorStage stage;
    stage.Open();
    Put(stage.Text(), u"a|bc|d"_s);
    QTest::keyClick(&stage.Text(), Qt::Key_Tab);
    QCOMPARE(stage.Text().Text(), u"abcd"_s);
    QCOMPARE(stage.Text().SelText(), u"bc"_s);
    stage.Document().Start(OpenMode::New, {});
    QTest::keyClick(&stage.Text(), Qt::Key_Tab);
    QCOMPARE(stage.Text().Text(), u"\t"_s);
    QCOMPARE(stage.Document().ChangedMark(), 1);
  }

  void CharactersSwapWhole_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("two letters") << u"a|b"_s << u"ba|"_s;
    QTest::newRow("inside a word") << u"fo|ro"_s << u"froo"_s.insert(3, u'|');
    QTest::newRow("beyond the plane") << u"\U0001F600|\U0001D11E!"_s << u"\U0001D11E\U0001F600|!"_s;
    QTest::newRow("combining marks") << u"e\u0301|a\u0308"_s << u"a\u0308e\u0301|"_s;
    QTest::newRow("family of people") << u"\U0001F468\u200D\U0001F469|x"_s << u"x\U0001F468\u200D\U0001F469|"_s;
    QTest::newRow("at the start") << u"|ab"_s << u"|ab"_s;
    QTest::newRow("at the end") << u"ab|"_s << u"ab|"_s;
    QTest::newRow("over a paragraph's end") << u"a|\nb"_s << u"\na|b"_s;
  }
  void CharactersSwapWhole() {
    QFETCH(QString, before);
    QFETCH(QString, after);
    EditorStage stage;
    stage.Open();
    Put(stage.Text(), before);
    QTest::keyClick(&stage.Text(), Qt::Key_S, Qt::AltModifier);
    QCOMPARE(Seen(stage.Text()), after);
    QTest::keyClick(&stage.Text(), Qt::Key_X);
    stage.Text().undo();
    QCOMPARE(Seen(stage.Text()), after);
    stage.Text().undo();
    QCOMPARE(stage.Text().Text(), QString(before).remove(u'|'));
  }

  void SwapLeavesCellsAndPicturesWhole() {
    EditorStage stage;
    stage.Open();
    QTextCursor cursor = stage.Text().textCursor();
    QTextTable* table = cursor.insertTable(1, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText(u"a"_s);
    table->cellAt(0, 1).firstCursorPosition().insertText(u"b"_s);
    stage.Text().SetSelStart(table->cellAt(0, 1).firstPosition());
    const QString before = stage.Text().Text();
    SwapCharacters(stage.Text());
    QCOMPARE(stage.Text().Text(), before);
    QCOMPARE(table->columns(), 2);

    Put(stage.Text(), u"a|b"_s);
    stage.Text().textCursor().insertImage(QImage(2, 2, QImage::Format_RGB32));
    const QString withPicture = stage.Text().Text();
    QVERIFY(!SwapCharacters(stage.Text()));
    QCOMPARE(stage.Text().Text(), withPicture);
  }

  void AttributesToggleAndGo() {
    EditorStage stage;
    stage.Open();
    RichTextControl& text = stage.Text();
    Put(text, u"|word|"_s);
    for (const Qt::Key key : {Qt::Key_B, Qt::Key_I, Qt::Key_U}) QTest::keyClick(&text, key, Qt::AltModifier);
    QVERIFY(text.Bold() && text.Italic() && text.Underline());
    QTest::keyClick(&text, Qt::Key_B, Qt::AltModifier);
    QTest::keyClick(&text, Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!text.Bold() && !text.Italic() && text.Underline());
    QTextCharFormat raised;
    raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    text.mergeCurrentCharFormat(raised);
    text.SetStrikeout(1);
    text.SetBold(1);
    QTest::keyClick(&text, Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!text.Bold() && !text.Italic() && !text.Underline() && !text.Strikeout());
    QCOMPARE(text.currentCharFormat().verticalAlignment(), QTextCharFormat::AlignNormal);
    QCOMPARE(text.SelText(), u"word"_s);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::EditorTypingTest)
#include "editor_typing_test.moc"

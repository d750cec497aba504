#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include "fakes/fake_clipboard.h"
#include "platform/qt/dialogs/find_replace_dialog.h"
#include "platform/qt/dialogs/font_dialog.h"
#include "platform/qt/dialogs/paragraph_dialog.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

constexpr char kMixed[] =
    "{\\rtf1\\fs24 plain {\\b bold {\\i\\ul both}} {\\strike\\cf1 end}\\par\\qc\\li720 centred\\par}";

/// Works in the modal window that comes up next.
template <typename Window, typename Work>
void InNextWindow(Work work) {
  QTimer::singleShot(0, [work] {
    auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
    if (!window) window = qobject_cast<Window*>(QApplication::activePopupWidget());
    if (!window) QTest::qFail("no such window", __FILE__, __LINE__);
    if (window) work(*window);
  });
}

QStringList Found(const QString& text, const SearchPattern& pattern) {
  QStringList places;
  for (const int place : MatchesIn(text, pattern)) places << QString::number(place);
  return places;
}

}  // namespace

class ControlDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void FontDialogChangesOnlyWhatTheUserChanged() {
    RichTextControl control;
    control.SetSelRtf(kMixed);
    control.SetSelStart(0);
    control.SetSelLength(-1);
    QSignalSpy edited(&control, &RichTextControl::Edited);
    InNextWindow<TextFontDialog>([](TextFontDialog& dialog) {
      const FontTraits shown = dialog.Traits();
      if (shown.points != 12.0) QTest::qFail("size", __FILE__, __LINE__);
      if (shown.bold || shown.underline || shown.strike) QTest::qFail("mixed", __FILE__, __LINE__);
      dialog.findChild<QComboBox*>()->setCurrentIndex(static_cast<int>(UnderlineLook::Wave));
      dialog.accept();
    });
    control.FontDialog();
    QCOMPARE(edited.size(), 1);
    const auto formatAt = [&](int position) {
      QTextCursor cursor(control.document());
      cursor.setPosition(position + 1);
      return cursor.charFormat();
    };
    QCOMPARE(formatAt(0).underlineStyle(), QTextCharFormat::WaveUnderline);
    QVERIFY(formatAt(0).fontWeight() < QFont::DemiBold && formatAt(7).fontWeight() == QFont::Bold);
    QVERIFY(formatAt(12).fontItalic() && !formatAt(7).fontItalic());
    QVERIFY(formatAt(17).fontStrikeOut());
    control.undo();
    QCOMPARE(formatAt(0).underlineStyle(), QTextCharFormat::NoUnderline);

    InNextWindow<TextFontDialog>([](TextFontDialog& dialog) { dialog.accept(); });
    control.FontDialog();
    InNextWindow<TextFontDialog>([](TextFontDialog& dialog) { dialog.reject(); });
    control.FontDialog();
    QCOMPARE(edited.size(), 1);
  }

  void EveryTraitOfAFontIsKept() {
    const QFont defaults("Serif", 10);
    FontTraits wanted = FontTraits::Of(QTextCharFormat(), defaults);
    const FontTraits before = wanted;
    wanted.family = "Monospace";
    wanted.points = 18.5;
    wanted.bold = true;
    wanted.italic = true;
    wanted.underline = UnderlineLook::Double;
    wanted.strike = StrikeLook::Double;
    wanted.position = QTextCharFormat::AlignSuperScript;
    wanted.capitals = QFont::SmallCaps;
    wanted.colour = QColor(200, 0, 0);
    wanted.background = QColor(255, 255, 0);
    QTextCharFormat format = FontChange(before, wanted);
    QCOMPARE(FontTraits::Of(format, defaults), wanted);
    QCOMPARE(FontChange(wanted, wanted).propertyCount(), 0);
    format.merge(FontChange(wanted, before));
    FontTraits back = FontTraits::Of(format, defaults);
    QCOMPARE(back, before);

    RichTextControl control;
    control.SetSelRtf(RichText::FromPlainText("x").Rtf());
    QTextCursor all(control.document());
    all.select(QTextCursor::Document);
    all.mergeCharFormat(FontChange(before, wanted));
    const RichText travelled = RichText::FromRtf(RichText::FromDocument(*control.document()).Rtf());
    QTextCursor first(const_cast<QTextDocument*>(&travelled.Document()));
    first.setPosition(1);
    QCOMPARE(FontTraits::Of(first.charFormat(), defaults), wanted);
  }

  void ParagraphDialogChangesOnlyWhatTheUserChanged() {
    RichTextControl control;
    control.SetSelRtf(kMixed);
    control.SetSelStart(0);
    control.SetSelLength(-1);
    InNextWindow<TextParagraphDialog>([](TextParagraphDialog& dialog) {
      const ParagraphTraits shown = dialog.Traits();
      if (shown.alignment || shown.left || shown.right != 0.0) QTest::qFail("mixed", __FILE__, __LINE__);
      for (auto* box : dialog.findChildren<QComboBox*>())
        if (box->count() == 6) box->setCurrentIndex(static_cast<int>(LineSpacingRule::Double));
      dialog.accept();
    });
    control.ParagraphDialog();
    const QTextBlock first = control.document()->firstBlock();
    QCOMPARE(first.blockFormat().lineHeight(), 200.0);
    QCOMPARE(first.next().blockFormat().lineHeight(), 200.0);
    QCOMPARE(first.blockFormat().leftMargin(), 0.0);
    QCOMPARE(first.next().blockFormat().leftMargin(), 48.0);
    QCOMPARE(first.next().blockFormat().alignment(), Qt::AlignHCenter);
  }

  void EveryTraitOfAParagraphIsKept() {
    RichTextControl control;
    control.SetText("one\ntwo");
    const ParagraphTraits before = ParagraphTraits::OfSelection(control);
    ParagraphTraits wanted = before;
    wanted.alignment = ParagraphAlignment::Right;
    wanted.left = 40;
    wanted.right = 16;
    wanted.firstLine = -20;
    wanted.before = 8;
    wanted.after = 12;
    wanted.lines = LineSpacing{LineSpacingRule::Exactly, 30};
    wanted.keepTogether = true;
    wanted.keepWithNext = true;
    wanted.pageBreakBefore = true;
    wanted.tabs = QList<QTextOption::Tab>{QTextOption::Tab(96, QTextOption::RightTab),
                                          QTextOption::Tab(192, QTextOption::DelimiterTab, u'.')};
    QVERIFY(ApplyParagraphTraits(control, before, wanted));
    QCOMPARE(ParagraphTraits::OfSelection(control), wanted);
    QCOMPARE(ParagraphTraits::Of(control.document()->lastBlock()), before);
    {
      TextParagraphDialog dialog(wanted, nullptr);
      QCOMPARE(dialog.Traits(), wanted);
    }
    QVERIFY(!ApplyParagraphTraits(control, wanted, wanted));
    control.undo();
    QCOMPARE(ParagraphTraits::OfSelection(control), before);
  }

  void MatchesAreFound() {
    QCOMPARE(Found("Anna and ANNA", {"anna"}), QStringList({"0", "9"}));
    QCOMPARE(Found("Anna and ANNA", {"ANNA", true}), QStringList({"9"}));
    QCOMPARE(Found("and sand and", {"and", false, true}), QStringList({"0", "9"}));
    QCOMPARE(Found("aaaa", {"aa"}), QStringList({"0", "2"}));
    QCOMPARE(Found(QString("two") + QChar::Nbsp + "words", {"o w"}), QStringList({"2"}));
    QCOMPARE(Found("c++ c", {"c++", false, true}), QStringList({"0"}));
    QCOMPARE(Found("text", {""}), QStringList());
  }

  void FindGoesRoundInBothDirections() {
    RichTextControl control;
    control.SetText("one two\none three");
    control.show();
    control.FindReplaceDialog(1);
    auto* dialog = control.findChild<TextFindDialog*>();
    QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
    dialog->findChild<QLineEdit*>()->setText("ONE");
    QList<int> places;
    for (int i = 0; i < 3; ++i) {
      dialog->FindNext();
      places << control.SelStart();
    }
    QCOMPARE(places, QList<int>({0, 8, 0}));
    for (auto* box : dialog->findChildren<QCheckBox*>())
      if (box->text().contains("backwards")) box->setChecked(true);
    dialog->FindNext();
    QCOMPARE(control.SelStart(), 8);
    dialog->findChild<QLineEdit*>()->setText("none");
    dialog->FindNext();
    QCOMPARE(control.SelStart(), 8);
    control.hide();
    QVERIFY(!dialog->isVisible());
  }

  void OneFindWindowFollowsTheTextAskedLast() {
    RichTextControl first;
    RichTextControl second;
    first.show();
    second.show();
    first.FindReplaceDialog(1);
    first.findChild<TextFindDialog*>()->findChild<QLineEdit*>()->setText("word");
    second.FindReplaceDialog(1);
    const auto* left = first.findChild<TextFindDialog*>();
    QVERIFY(!left || !left->isVisible());
    auto* dialog = second.findChild<TextFindDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    auto* field = dialog->findChild<QLineEdit*>();
    QCOMPARE(field->text(), QString("word"));
    QTest::keyClick(field, Qt::Key_Q, Qt::AltModifier);
    QCOMPARE(field->text(), QString("word"));
    QTest::keyClick(field, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
  }

  void ReplacingKeepsFormatsAndCounts() {
    RichTextControl control;
    control.SetSelRtf("{\\rtf1 cat {\\b cat} catalogue\\par Cat}");
    QSignalSpy edited(&control, &RichTextControl::Edited);
    control.show();
    control.FindReplaceDialog(2);
    auto* dialog = control.findChild<TextFindDialog*>();
    const auto fields = dialog->findChildren<QLineEdit*>();
    QCOMPARE(fields.size(), 2);
    fields[0]->setText("cat");
    fields[1]->setText("wildcat");
    dialog->ReplaceOne();  // finds the first
    dialog->ReplaceOne();
    QCOMPARE(control.Text(), QString("cat cat catalogue\nCat").replace(0, 3, "wildcat"));
    dialog->ReplaceAll();
    QCOMPARE(control.Text(), QString("wildwildcat wildcat wildcatalogue\nwildcat"));
    const auto labels = dialog->findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(),
                        [](const QLabel* label) { return label->text() == "4 replacements made."; }));
    QCOMPARE(edited.size(), 2);
    control.SetSelStart(13);
    control.SetSelLength(6);
    QCOMPARE(control.Bold(), -1);
    control.undo();
    QCOMPARE(control.Text(), QString("wildcat cat catalogue\nCat"));
  }

  void TheMenuPastesTheWordsAlone() {
    FakeClipboard source;
    source.HoldRtf("{\\rtf1 {\\b bold}}", "bold");
    RichTextControl control;
    control.SetPasteSource(&source);
    QSignalSpy edited(&control, &RichTextControl::Edited);
    control.show();
    QVERIFY(!control.document()->isUndoAvailable());
    InNextWindow<QMenu>([](QMenu& menu) {
      for (QAction* action : menu.actions()) {
        if (action->text() == "&Undo" && action->isEnabled()) QTest::qFail("undo", __FILE__, __LINE__);
        if (action->text().startsWith("Paste as plain")) action->trigger();
      }
      menu.close();
    });
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), control.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&control, &asked);
    QCOMPARE(control.Text(), QString("bold"));
    QCOMPARE(control.Bold(), 0);
    QCOMPARE(edited.size(), 1);
  }

  void DroppedTextCountsAsAnEdit() {
    RichTextControl control;
    control.resize(200, 100);
    control.show();
    QSignalSpy edited(&control, &RichTextControl::Edited);
    QMimeData data;
    data.setText("dropped");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(control.viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(control.viewport(), &drop);
    QCOMPARE(control.Text(), QString("dropped"));
    QCOMPARE(edited.size(), 1);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ControlDialogsTest)
#include "control_dialogs_test.moc"

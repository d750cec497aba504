#include <QAbstractTextDocumentLayout>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>

#include "platform/qt/button_bar.h"
#include "platform/qt/printing/page_printing.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/status_bar.h"

namespace snipdeck {
namespace {

using namespace Qt::StringLiterals;

// The same answer by the long way: the page of the view of pages, and every line from the start of the text.
CaretPlace PlaceByCounting(const RichTextControl& control, const PagedCopy& paper) {
  const auto pageAt = [&](int place) { return paper.Text().PageOfDot(paper.Text().CaretDots(place).top() + 1) + 1; };
  const int position = control.textCursor().position();
  CaretPlace place{pageAt(position), 0, 1};
  for (QTextBlock block = control.document()->begin(); block.isValid(); block = block.next()) {
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
      const QTextLine line = block.layout()->lineAt(i);
      const int begin = block.position() + line.textStart();
      if (begin > position) return place;
      const bool isLast = i + 1 == block.layout()->lineCount();
      const int last = begin + line.textLength() - (isLast ? 0 : 1);
      if (pageAt(begin) <= place.page && pageAt(last) >= place.page) ++place.line;
      place.column = 1 + position - begin;
    }
  }
  return place;
}

}  // namespace

class ControlBarsTest : public QObject {
  Q_OBJECT

  struct Fixture {
    QWidget window;
    TXButtonBar buttons{&window};
    RichTextControl control{&window};
    TXStatusBar status{&window};

    Fixture() {
      buttons.setGeometry(0, 0, 500, 25);
      control.setGeometry(0, 30, 500, 200);
      status.setGeometry(0, 232, 500, 18);
      control.SetButtonBarHandle(buttons.WindowHandle());
      control.SetStatusBarHandle(status.WindowHandle());
      window.resize(500, 250);
      window.show();
      window.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&window));
      control.setFocus();
    }

    template <typename Part>
    Part* Named(const QString& name) const {
      for (Part* part : buttons.findChildren<Part*>())
        if (part->accessibleName() == name) return part;
      return nullptr;
    }
    void Click(const QString& name) const { QTest::mouseClick(Named<GlyphButton>(name), Qt::LeftButton); }
    bool IsPressed(const QString& name) const { return Named<GlyphButton>(name)->isChecked(); }
  };

 private slots:
  void TheButtonBarIsReachedByKeys() {
    Fixture f;
    f.control.SetText("word");
    f.control.SetSelLength(-1);
    f.Named<GlyphButton>("Bold")->setFocus(Qt::TabFocusReason);
    QVERIFY(f.Named<GlyphButton>("Bold")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(f.control.Bold(), -1);
    QTRY_VERIFY(f.control.hasFocus());
  }

  void TheButtonBarShowsTheFormatAtTheCaret() {
    Fixture f;
    f.control.SetSelRichText(
        RichText::FromHtml("<p>plain</p><p align='right'><span style='font-family:Courier; "
                           "font-size:18pt'><b><u>loud</u></b></span></p>"));
    QTRY_VERIFY(f.IsPressed("Bold") && f.IsPressed("Underline") && !f.IsPressed("Italic"));
    QVERIFY(f.IsPressed("Align right") && !f.IsPressed("Align left"));
    QCOMPARE(f.Named<QComboBox>("Font")->currentText(), QString("Courier"));
    QCOMPARE(f.Named<QComboBox>("Font size in points")->currentText(), QString("18"));
    f.control.SetSelStart(2);
    QTRY_VERIFY(!f.IsPressed("Bold") && f.IsPressed("Align left"));
    QCOMPARE(f.Named<QComboBox>("Font size in points")->currentText(), QString("10"));
  }

  void ButtonsChangeTheSelectionAndGiveTheFocusBack() {
    Fixture f;
    f.control.SetText("one two");
    f.control.SetSelStart(4);
    f.control.SetSelLength(3);
    f.Click("Bold");
    f.Click("Centre");
    QCOMPARE(f.control.Bold(), -1);
    QCOMPARE(f.control.alignment(), Qt::AlignHCenter);
    QVERIFY(f.control.hasFocus());
    f.control.SetSelStart(1);
    QCOMPARE(f.control.Bold(), 0);
  }

  void ATypedSizeOrFontIsTakenWithEnter() {
    Fixture f;
    f.control.SetText("one two");
    f.control.SetSelStart(0);
    f.control.SetSelLength(3);
    const auto type = [&](const QString& combo, const QString& value, Qt::Key last) {
      QLineEdit* const field = f.Named<QComboBox>(combo)->lineEdit();
      field->setFocus();
      field->selectAll();
      QTest::keyClicks(field, value);
      QTest::keyClick(field, last);
    };
    type("Font size in points", "17", Qt::Key_Return);
    QVERIFY(f.control.hasFocus());
    type("Font", "Monospace", Qt::Key_Return);
    type("Font size in points", "no size", Qt::Key_Return);
    type("Font size in points", "40", Qt::Key_Escape);
    QVERIFY(f.control.hasFocus());
    QCOMPARE(f.control.SelText(), QString("one"));
    QCOMPARE(f.control.currentCharFormat().fontPointSize(), 17.0);
    QCOMPARE(f.control.currentCharFormat().fontFamilies().toStringList(), QStringList("Monospace"));
    QTRY_COMPARE(f.Named<QComboBox>("Font size in points")->currentText(), QString("17"));
  }

  void EverythingFitsIntoTheLowBar() {
    Fixture f;
    for (const QWidget* part : f.buttons.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      QVERIFY(f.buttons.rect().contains(part->geometry()));
      QVERIFY(!part->toolTip().isEmpty() && !part->accessibleName().isEmpty());
    }
    for (const QLineEdit* field : f.buttons.findChildren<QLineEdit*>())
      QVERIFY(field->height() >= field->fontMetrics().height());
    for (const QLabel* label : f.status.findChildren<QLabel*>())
      QVERIFY(label->height() >= label->fontMetrics().height());
  }

  void TheCaretsPlaceAgreesWithCounting_data() {
    QTest::addColumn<int>("zoom");
    QTest::newRow("as given") << 100;
    QTest::newRow("enlarged") << 130;
  }

  void TheCaretsPlaceAgreesWithCounting() {
    QFETCH(const int, zoom);
    Fixture f;
    f.control.SetZoomValue(zoom);
    for (int i = 0; i < 300; ++i) f.control.AppendText(QString("word %1 ").arg(i).repeated(1 + i % 40) + u'\n');
    const int end = f.control.SelStart();
    PageGeometry small;
    small.width = 8391;
    small.height = 11906;
    f.control.SetPage(small);
    bool known = false;
    PageStarts starts([&] { known = true; });
    starts.LookAt(f.control);
    QCOMPARE(CaretPlaceIn(f.control, starts).page, 0);
    QTRY_VERIFY(known);
    const PagedCopy paper(*f.control.document());
    QCOMPARE(starts.Count(), paper.Text().CountPages());
    QVERIFY(starts.Count() > 5);
    for (int position = 0; position <= end; position += 397) {
      f.control.SetSelStart(position);
      const CaretPlace found = CaretPlaceIn(f.control, starts);
      const CaretPlace counted = PlaceByCounting(f.control, paper);
      QCOMPARE(found.page, counted.page);
      QCOMPARE(found.line, counted.line);
      QCOMPARE(found.column, counted.column);
    }
    const QString shown = QString("Page %1 ").arg(CaretPlaceIn(f.control, starts).page);
    QTRY_VERIFY(f.status.findChildren<QLabel*>().first()->text().startsWith(shown));
    const int before = starts.PageOf(end);
    f.control.SetSelStart(0);
    f.control.SetSelText(u"typed\n"_s);
    QCOMPARE(starts.PageOf(end + 6), before);
  }

  void CellsSideBySideAreOneLine() {
    Fixture f;
    f.control.SetText(u"one\ntwo\n"_s);
    f.control.SetSelStart(8);
    QTextCursor caret = f.control.textCursor();
    QTextTable* const table = caret.insertTable(3, 4);
    table->cellAt(1, 0).firstCursorPosition().insertText(u"a\nb"_s);
    f.control.setTextCursor(table->cellAt(2, 3).firstCursorPosition());
    QTRY_VERIFY(f.status.findChildren<QLabel*>().first()->text().startsWith(u"Page 1   Line 6 "_s));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ControlBarsTest)
#include "control_bars_test.moc"

#include "platform/qt/ruler.h"

#include <QTest>
#include <QTextBlock>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

class RulerTest : public QObject {
  Q_OBJECT

  struct Fixture {
    QWidget window;
    TXRuler ruler{&window};
    RichTextControl control{&window};

    Fixture() {
      ruler.setGeometry(0, 0, 520, 22);
      control.setGeometry(8, 30, 500, 200);
      control.SetRulerHandle(ruler.WindowHandle());
      control.SetText("first paragraph\nsecond paragraph\nthird paragraph");
      window.resize(520, 240);
      window.show();
      QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    QTextBlockFormat Format(int paragraph) const {
      return control.document()->findBlockByNumber(paragraph).blockFormat();
    }
    QPoint Upper(double x) const { return QPoint(qRound(x), 4); }
    QPoint Lower(double x) const { return QPoint(qRound(x), ruler.height() - 4); }

    // Fine marks are skipped, so that places can be told to the pixel.
    void DragTo(QPoint from, QPoint to) {
      QTest::mousePress(&ruler, Qt::LeftButton, Qt::ControlModifier, from);
      QMouseEvent move(QEvent::MouseMove, to, ruler.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::ControlModifier);
      QApplication::sendEvent(&ruler, &move);
      QTest::mouseRelease(&ruler, Qt::LeftButton, Qt::ControlModifier, to);
    }
    void AddTab(double distance) {
      QTest::mouseClick(&ruler, Qt::LeftButton, Qt::ControlModifier,
                        Lower(ruler.XOf(ruler.Shown().TabOrigin() + distance)));
    }
  };

 private slots:
  void DraggingAnIndentIsOneStepForTheSelectedParagraphs() {
    Fixture f;
    f.control.SetSelStart(0);
    f.control.SetSelLength(20);
    f.DragTo(f.Lower(f.ruler.XOf(0)), f.Lower(f.ruler.XOf(0) + 60));
    QCOMPARE(f.Format(0).leftMargin(), 60.0);
    QCOMPARE(f.Format(1).leftMargin(), 60.0);
    QCOMPARE(f.Format(2).leftMargin(), 0.0);
    QCOMPARE(f.ruler.Shown().firstLine, 60.0);
    f.control.undo();
    QCOMPARE(f.Format(0).leftMargin(), 0.0);
    QCOMPARE(f.Format(1).leftMargin(), 0.0);
  }

  void TheThreeIndentsMoveApart() {
    Fixture f;
    f.DragTo(f.Lower(f.ruler.XOf(0)), f.Lower(f.ruler.XOf(0) + 60));
    f.DragTo(f.Upper(f.ruler.XOf(60)), f.Upper(f.ruler.XOf(60) - 25));
    QCOMPARE(f.Format(0).leftMargin(), 60.0);
    QCOMPARE(f.Format(0).textIndent(), -25.0);
    f.DragTo(f.Lower(f.ruler.XOf(60)), f.Lower(f.ruler.XOf(60) - 500));
    QCOMPARE(f.Format(0).leftMargin(), 25.0);  // the hanging first line stays inside the column
    const double edge = f.control.viewport()->width() - f.control.document()->documentMargin() + 8 + 1;
    f.DragTo(f.Lower(edge), f.Lower(edge - 80));
    QVERIFY(qAbs(f.Format(0).rightMargin() - 80) <= 1);
    QCOMPARE(f.Format(0).leftMargin(), 25.0);
  }

  void TabStopsStandWhereTheTextGoesOn_data() {
    QTest::addColumn<int>("zoom");
    QTest::addColumn<double>("leftMargin");
    QTest::addColumn<double>("textIndent");
    QTest::newRow("plain") << 100 << 0.0 << 0.0;
    QTest::newRow("hanging") << 100 << 40.0 << -25.0;
    QTest::newRow("enlarged") << 150 << 0.0 << 0.0;
    QTest::newRow("enlarged and indented") << 150 << 40.0 << 10.0;
  }

  void TabStopsStandWhereTheTextGoesOn() {
    QFETCH(const int, zoom);
    QFETCH(const double, leftMargin);
    QFETCH(const double, textIndent);
    Fixture f;
    f.control.SetZoomValue(zoom);
    f.control.SetText("a\tb");
    QTextBlockFormat format;
    format.setLeftMargin(leftMargin);
    format.setTextIndent(textIndent);
    f.control.textCursor().mergeBlockFormat(format);
    QTRY_COMPARE(f.ruler.Shown().left, leftMargin);
    f.AddTab(133);
    f.control.SetSelStart(2);
    const QRect caret = f.control.cursorRect();
    const QPoint onRuler = f.ruler.mapFromGlobal(f.control.viewport()->mapToGlobal(caret.topLeft()));
    QCOMPARE(f.Format(0).tabPositions().size(), 1);
    const double shown = f.ruler.XOf(f.ruler.Shown().tabs.first());
    QVERIFY2(qAbs(onRuler.x() - shown) <= 1.5, qPrintable(QString("%1 %2").arg(onRuler.x()).arg(shown)));
  }

  void ADoubleClickTurnsATabStopIntoTheNextKind() {
    Fixture f;
    f.AddTab(200);
    f.AddTab(100);
    QCOMPARE(f.Format(0).tabPositions().size(), 2);
    QVERIFY(f.Format(0).tabPositions()[0].position < f.Format(0).tabPositions()[1].position);
    const QList<QTextOption::TabType> kinds = {QTextOption::CenterTab, QTextOption::RightTab, QTextOption::DelimiterTab,
                                               QTextOption::LeftTab};
    for (const QTextOption::TabType kind : kinds) {
      QTest::mouseDClick(&f.ruler, Qt::LeftButton, {}, f.Lower(f.ruler.XOf(f.ruler.Shown().tabs[1])));
      QCOMPARE(f.Format(0).tabPositions()[1].type, kind);
      QCOMPARE(f.Format(0).tabPositions()[0].type, QTextOption::LeftTab);
    }
  }

  void ATabStopMovesAndComesOff() {
    Fixture f;
    f.AddTab(100);
    const double x = f.ruler.XOf(f.ruler.Shown().tabs.first());
    f.DragTo(f.Lower(x), f.Lower(x + 50));
    QCOMPARE(f.Format(0).tabPositions().first().position, 150.0);
    f.DragTo(f.Lower(x + 50), QPoint(qRound(x), 80));
    QVERIFY(f.Format(0).tabPositions().isEmpty());
    f.control.undo();
    QCOMPARE(f.Format(0).tabPositions().size(), 1);
  }

  void AHiddenRulerCatchesUpWhenItIsShown() {
    Fixture f;
    f.ruler.hide();
    QTextBlockFormat format;
    format.setLeftMargin(33);
    f.control.textCursor().mergeBlockFormat(format);
    QTest::qWait(0);
    f.ruler.show();
    QCOMPARE(f.ruler.Shown().left, 33.0);
    f.control.SetRulerHandle(nullptr);
    f.DragTo(f.Lower(f.ruler.XOf(33)), f.Lower(f.ruler.XOf(90)));
    QCOMPARE(f.Format(0).leftMargin(), 33.0);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::RulerTest)
#include "ruler_test.moc"

#include "capture/box_set.h"

#include <QTest>

#include "capture/box_stage.h"

namespace snipdeck {

namespace {

constexpr char kLeaveLargeView[] = "Exit full screen mode [F5] and return to text boxes for this command.";

}  // namespace

class BoxSetTest : public QObject {
  Q_OBJECT

 private slots:
  void OpeningShowsAFormattedCopy() {
    BoxStage f;
    f.boxes.OpenBoxInLargeView(3);
    QVERIFY(f.boxes.Frame1->isVisible());
    QVERIFY(!f.boxes.Box(1).isVisible() && !f.boxes.Box(12).isVisible());
    QCOMPARE(f.boxes.Frame1->Caption(), QString(" Text box 3 "));
    QCOMPARE(f.boxes.TXTextControl1().Text(), QString("some bold text"));
    f.boxes.TXTextControl1().SetSelStart(5);
    f.boxes.TXTextControl1().SetSelLength(4);
    QCOMPARE(f.boxes.TXTextControl1().Bold(), -1);
    QCOMPARE(f.boxes.FocusedBox, std::int16_t{3});
    QCOMPARE(f.boxes.Box(3).SelLength(), 0);
  }

  void OpeningWhileAPanelIsShownIsRefused() {
    BoxStage f;
    f.views.ToggleCumulative();
    f.messages.Expect(kLeaveLargeView);
    const std::int16_t focused = f.boxes.FocusedBox;
    f.boxes.OpenBoxInLargeView(3);
    QVERIFY(!f.boxes.Frame1->isVisible());
    QCOMPARE(f.boxes.FocusedBox, focused);
  }

  void AnEmptyBoxShowsAnEmptyLargeView() {
    BoxStage f;
    f.boxes.OpenBoxInLargeView(3);
    f.interaction.ToggleFullScreen();
    f.boxes.OpenBoxInLargeView(4);
    QCOMPARE(f.boxes.TXTextControl1().Text(), QString());
    QCOMPARE(f.boxes.Frame1->Caption(), QString(" Text box 4 "));
  }

  void TheFullScreenKeyOpensTheBoxLastWorkedIn() {
    BoxStage f;
    f.boxes.Box(3).setFocus();
    f.interaction.ToggleFullScreen();
    QCOMPARE(f.boxes.Frame1->Caption(), QString(" Text box 3 "));
    f.boxes.TXTextControl1().SetText("edited");
    f.interaction.ToggleFullScreen();
    QVERIFY(f.boxes.Box(1).isVisible() && !f.boxes.Frame1->isVisible());
    QCOMPARE(f.boxes.Box(3).Text(), QString("some bold text"));
  }

  void CtrlClickEnlargesAndWritesBack() {
    BoxStage f;
    f.boxes.Box(3).resize(200, 80);
    QTest::mouseClick(f.boxes.Box(3).viewport(), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(f.boxes.Frame1->isVisible());
    f.boxes.TXTextControl1().SetText("edited");
    QTest::mouseClick(f.boxes.TXTextControl1().viewport(), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(!f.boxes.Frame1->isVisible() && f.boxes.Box(3).isVisible());
    QCOMPARE(f.boxes.Box(3).Text(), QString("edited"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::BoxSetTest)
#include "box_set_test.moc"

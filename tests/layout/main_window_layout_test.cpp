#include "layout/main_window_layout.h"

#include <QTest>

namespace snipdeck {

class MainWindowLayoutTest : public QObject {
  Q_OBJECT

 private slots:
  void GridFillsTwoColumnsOfSix() {
    const auto boxes = MainWindowLayout::Place(12000, 9000, 120, 560).boxes;
    const double tops[] = {560, 1960, 3360, 4760, 6160, 7560};
    for (size_t row = 0; row < 6; ++row) {
      QCOMPARE(boxes[row].left, 120.0);
      QCOMPARE(boxes[row + 6].left, 6080.0);
      for (const TwipRect& box : {boxes[row], boxes[row + 6]}) {
        QCOMPARE(box.top, tops[row]);
        QCOMPARE(box.width, 5920.0);
        QCOMPARE(box.height, 1380.0);
      }
    }
    QCOMPARE(boxes[11].left + boxes[11].width, 12000.0);
    QCOMPARE(boxes[11].top + boxes[11].height, 9000.0 - 60);
  }

  void SidebarMovesTheGrid() {
    QCOMPARE(MainWindowLayout::GridLeft(false, 2295), 120.0);
    QCOMPARE(MainWindowLayout::GridLeft(true, 2295), 2495.0);
    QCOMPARE(MainWindowLayout::GridLeft(true, 2294.6), 2495.0);
  }

  void SidebarEndsWithTheGrid() {
    const auto boxes = MainWindowLayout::Place(12000, 9000, 2495, 560).boxes;
    QCOMPARE(740 + MainWindowLayout::SidebarGridHeight(9000), boxes[5].top + boxes[5].height);
    QCOMPARE(boxes[0].left, 2495.0);
    QCOMPARE(boxes[0].left + boxes[0].width + 40, boxes[6].left);
    QCOMPARE(boxes[6].left + boxes[6].width, 12000.0);
    QVERIFY(MainWindowLayout::SidebarGridHeight(0) < 0);
  }

  void HalvesAndSixthsAreNotRounded() {
    const auto boxes = MainWindowLayout::Place(12001, 9001, 120, 560).boxes;
    QCOMPARE(boxes[0].width, 5920.5);
    QCOMPARE(boxes[0].height, 8281.0 / 6);
  }

  void PanelsCoverTheGridFromBoxOnesTop() {
    const auto first = MainWindowLayout::Place(12000, 9000, 120, 600);
    QCOMPARE(first.frame1.panel.top, 600.0);
    const auto placement = MainWindowLayout::Place(12000, 9000, 120, 560);
    for (const PanelPlacement& frame : {placement.frame1, placement.frame2}) {
      QCOMPARE(frame.panel.left + frame.panel.width, 12000.0 - 80);
      QCOMPARE(frame.panel.top + frame.panel.height, 9000.0 - 80);
      QCOMPARE(frame.textControl.width, frame.panel.width - 230);
      QCOMPARE(frame.textControl.height, frame.panel.height - 1020 - 270 - 36);
      QCOMPARE(frame.statusBar.top, frame.panel.height - 310);
      QCOMPARE(frame.ruler.width, frame.textControl.width);
    }
    QCOMPARE(placement.frame1.statusBar.width, placement.frame1.panel.width - 230);
    QCOMPARE(placement.frame2.statusBar.width, placement.frame2.panel.width);
    QCOMPARE(placement.frame1.buttonBar.left, 80.0);
    QCOMPARE(placement.frame2.buttonBar.left, 120.0);
  }
};

}  // namespace snipdeck

QTEST_APPLESS_MAIN(snipdeck::MainWindowLayoutTest)
#include "main_window_layout_test.moc"

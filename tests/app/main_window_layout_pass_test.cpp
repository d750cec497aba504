#include <QLabel>
#include <QTest>

#include "app/main_window_stage.h"

namespace snipdeck {

/// The layout as the window applies it; the arithmetic has tests of its own.
class MainWindowLayoutPassTest : public QObject {
  Q_OBJECT

 private:
  static constexpr int kNoSidebarLeft = 8;
  static QWidget* Client(MainWindowStage& stage) { return stage.window.centralWidget(); }

  static void Resize(MainWindowStage& stage, QSize client) {
    stage.window.resize(stage.window.size() + client - Client(stage)->size());
    QTRY_COMPARE(Client(stage)->size(), client);
  }

 private slots:
  void WindowOfAKnownSize() {
    MainWindowStage stage;
    Resize(stage, {800, 700});
    BoxSet& boxes = stage.window.Boxes();
    // 12000 x 10500 twips: rows of 1630 at 560, 2210, ...
    QCOMPARE(boxes.Box(1).geometry(), QRect(QPoint(8, 37), QPoint(402, 145)));
    QCOMPARE(boxes.Box(7).x(), 405);
    QCOMPARE(boxes.Box(7).geometry().right(), 799);
    QCOMPARE(boxes.Box(12).geometry().bottom(), 695);
    QCOMPARE(boxes.Frame1->geometry().right(), 800 - 6);
    QVERIFY(boxes.Frame1->y() == 37 && boxes.Frame2->y() == 37);
  }

  void SidebarTakesItsRoomAtOnce() {
    MainWindowStage stage;
    Resize(stage, {1200, 700});
    BoxSet& boxes = stage.window.Boxes();
    QCOMPARE(boxes.Box(1).x(), kNoSidebarLeft);
    stage.window.mnuView_SideBar_Click();
    QCOMPARE(boxes.Box(1).x(), (2100 + 200) / 15);
    QCOMPARE(stage.Find<SidebarGrid>("iGridListBar")->geometry().bottom(), boxes.Box(6).geometry().bottom());
    QCOMPARE(stage.Find<QLabel>("lblListBar")->isVisible(), true);
    stage.window.mnuViewSideBarWidth_Click();
    QCOMPARE(boxes.Box(1).x(), 147);
    QCOMPARE(boxes.Frame2->x(), 147);
    stage.window.mnuView_SideBar_Click();
    QCOMPARE(boxes.Box(1).x(), kNoSidebarLeft);
    QVERIFY(!stage.Find<SidebarGrid>("iGridListBar")->isVisible());
  }

  void TextIsPlacedForItsNewWidth() {
    MainWindowStage stage;
    RichTextControl& box = stage.window.Boxes().Box(7);
    box.SetText(QStringLiteral("many words in one paragraph ").repeated(200));
    for (const QSize size : {QSize(1200, 700), QSize(600, 700), QSize(900, 700)}) {
      Resize(stage, size);
      QTRY_COMPARE(qRound(box.document()->textWidth()), box.viewport()->width());
      QVERIFY(box.document()->size().width() <= box.viewport()->width() + 1);
    }
  }

  void WindowIsNeverSmallerThanItMayBe() {
    MainWindowStage stage;
    stage.window.resize(100, 100);
    QTRY_COMPARE(stage.window.frameGeometry().size(), QSize(533, 667));
    for (int n = 1; n <= kBoxCount; ++n) QVERIFY(stage.window.Boxes().Box(n).height() > 50);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::MainWindowLayoutPassTest)
#include "main_window_layout_pass_test.moc"

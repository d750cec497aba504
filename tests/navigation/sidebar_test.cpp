#include "navigation/sidebar.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "fakes/scripted_messages.h"
#include "navigation/sidebar_delegate.h"
#include "navigation/sidebar_rows.h"

namespace snipdeck {

class SidebarTest : public QObject {
  Q_OBJECT

 private:
  struct Stage {
    QWidget window;
    Settings settings;
    ScriptedMessages messages;
    QList<int> run;
    int layouts = 0;
    int focusSwitches = 0;
    Sidebar sidebar{window,
                    settings,
                    messages,
                    {[this](int row) { run.append(row); }, [this] { LayOut(); }, [this] { ++focusSwitches; }}};

    Stage() {
      window.resize(800, 1000);
      settings.sidebarShown = 1;
      sidebar.Fill();
      LayOut();
      window.show();
      QVERIFY(QTest::qWaitForWindowExposed(&window));
      layouts = 0;
    }
    void LayOut() {
      ++layouts;
      sidebar.ToggleSideBarWidth(0);
      sidebar.Place(13000);
    }
    SidebarGrid& Grid() { return sidebar.Grid(); }
    QPoint MiddleOf(int row) { return Grid().visualItemRect(Grid().item(row - 1, 0)).center(); }
    QColor GroundOf(int row) { return Grid().item(row - 1, 0)->background().color(); }
    int StripWidth() { return window.findChild<QLabel*>(QStringLiteral("lblListBar"))->width(); }
  };

  static void ExpectStandardWidth(Stage& stage) {
    stage.messages.Expect(
        QStringLiteral("2100 is the standard width of the SideBar.\r\n\r\n"
                       "However, you may need to widen it if a vertical scroll bar is visible."));
  }

 private slots:
  void ThirteenRowsWithPictures() {
    Stage stage;
    QCOMPARE(stage.Grid().rowCount(), 13);
    QCOMPARE(stage.Grid().columnWidth(0), 140);
    QCOMPARE(stage.Grid().item(1, 0)->text(), QStringLiteral("Boxes/full screen"));
    QCOMPARE(stage.Grid().CurrentRow(), 1);
    QVERIFY(stage.Grid().item(0, 0)->isSelected());
    for (int row = 1; row <= 13; ++row) {
      QCOMPARE(stage.Grid().rowHeight(row - 1), 64);
      const QImage cell =
          stage.Grid().viewport()->grab(stage.Grid().visualItemRect(stage.Grid().item(row - 1, 0))).toImage();
      // White lines on the grey ground, where the picture stands.
      int drawn = 0;
      for (int y = 6; y < 38; ++y)
        for (int x = 54; x < 86; ++x) drawn += cell.pixelColor(x, y) == kSidebarText;
      QVERIFY2(drawn > 40, qPrintable(stage.Grid().item(row - 1, 0)->text()));
    }
  }

  void ClickAndKeysRunARow() {
    Stage stage;
    QTest::mouseClick(stage.Grid().viewport(), Qt::LeftButton, {}, stage.MiddleOf(4));
    QTest::keyClick(&stage.Grid(), Qt::Key_Down);
    QTest::keyClick(&stage.Grid(), Qt::Key_Return);
    QTest::keyClick(&stage.Grid(), Qt::Key_Space);
    QCOMPARE(stage.run, QList<int>({4, 5, 5}));
    QCOMPARE(stage.Grid().CurrentRow(), 5);
  }

  void RowsOutsideAndGreyedOutDoNothing() {
    Stage stage;
    for (int row : {0, 14, -1}) stage.sidebar.RunRow(row);
    stage.sidebar.SetRowEnabled(3, false);
    stage.sidebar.RunRow(3);
    QTest::mouseClick(stage.Grid().viewport(), Qt::LeftButton, {}, stage.MiddleOf(3));
    QVERIFY(stage.run.isEmpty());
    stage.sidebar.SetRowEnabled(3, true);
    stage.sidebar.RunRow(3);
    QCOMPARE(stage.run, QList<int>{3});
  }

  void RowThatWasCurrentComesBack() {
    Stage stage;
    stage.Grid().SelectRow(2);
    connect(&stage.Grid(), &SidebarGrid::RowChosen, this, [&stage] { stage.Grid().SelectRow(9); });
    stage.sidebar.RunRow(7);
    QCOMPARE(stage.Grid().CurrentRow(), 2);
    QVERIFY(stage.Grid().item(1, 0)->isSelected());
  }

  void KeysThatLeadBackToTheText() {
    Stage stage;
    QTest::keyClick(&stage.Grid(), Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    QTest::keyClick(&stage.Grid(), Qt::Key_X, Qt::AltModifier);
    QCOMPARE(stage.focusSwitches, 2);
    QTest::keyClick(&stage.Grid(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(&stage.Grid(), Qt::Key_X);
    QCOMPARE(stage.focusSwitches, 2);
    QVERIFY(stage.run.isEmpty());
  }

  void CellUnderTheMouseStandsOut() {
    Stage stage;
    const QCursor hand(Qt::OpenHandCursor);
    stage.sidebar.SetHandPointer(hand);
    QTest::mouseMove(stage.Grid().viewport(), stage.MiddleOf(2));
    QTRY_COMPARE(stage.GroundOf(2), kSidebarHotGround);
    QCOMPARE(stage.Grid().item(1, 0)->foreground().color(), kSidebarHotText);
    QCOMPARE(stage.Grid().viewport()->cursor().shape(), Qt::OpenHandCursor);
    QTest::mouseMove(stage.Grid().viewport(), stage.MiddleOf(3));
    QTRY_COMPARE(stage.GroundOf(3), kSidebarHotGround);
    QCOMPARE(stage.GroundOf(2), kSidebarGrey);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(stage.Grid().viewport(), &leave);
    QCOMPARE(stage.GroundOf(3), kSidebarGrey);
    QCOMPARE(stage.Grid().viewport()->cursor().shape(), Qt::ArrowCursor);
  }

  void WidthGoesThroughEightSteps() {
    Stage stage;
    QCOMPARE(stage.sidebar.Width(), 2100.0);
    const double widths[] = {2000, 2150, 2300, 2450, 2600, 2750, 2900};
    for (int step = 1; step <= 7; ++step) {
      stage.sidebar.ToggleSideBarWidth(1);
      QCOMPARE(stage.settings.sidebarWidthStep, step);
      QCOMPARE(stage.sidebar.Width(), widths[step - 1]);
      QCOMPARE(stage.Grid().width(), qRound(widths[step - 1] / 15));
      QCOMPARE(stage.StripWidth(), stage.Grid().width());
      QCOMPARE(stage.layouts, step);
    }
    ExpectStandardWidth(stage);
    stage.sidebar.ToggleSideBarWidth(1);
    QCOMPARE(stage.settings.sidebarWidthStep, 0);
    QCOMPARE(stage.Grid().width(), 140);
    // Applying it once more neither tells it again nor changes anything.
    stage.sidebar.ToggleSideBarWidth(0);
    QCOMPARE(stage.settings.sidebarWidthStep, 0);
    QCOMPARE(stage.layouts, 8);
  }

  void ForeignWidthStepKeepsTheWidth() {
    Stage stage;
    for (std::int16_t foreign : {-3, 8, 32767}) {
      stage.settings.sidebarWidthStep = foreign;
      stage.sidebar.ToggleSideBarWidth(0);
      QCOMPARE(stage.sidebar.Width(), 2100.0);
    }
    for (std::int16_t foreign : {-3, 8, 32767}) {
      stage.settings.sidebarWidthStep = foreign;
      ExpectStandardWidth(stage);
      stage.sidebar.ToggleSideBarWidth(1);
      QCOMPARE(stage.settings.sidebarWidthStep, 0);
    }
  }

  void HidingAndShowingKeepsTheWidth() {
    Stage stage;
    stage.sidebar.ToggleSideBarWidth(1);
    stage.sidebar.TakeFocus();
    stage.sidebar.ToggleShown();
    QCOMPARE(stage.settings.sidebarShown, 0);
    QVERIFY(!stage.Grid().isVisible());
    stage.sidebar.ToggleShown();
    QCOMPARE(stage.settings.sidebarShown, 1);
    QVERIFY(stage.Grid().isVisible());
    QCOMPARE(stage.Grid().width(), qRound(2000 / 15.0));
    stage.settings.sidebarShown = 2;
    QVERIFY(!stage.sidebar.IsShown());
  }

  void FontComesFromTheSettings() {
    Stage stage;
    stage.settings.sidebarFontName = QStringLiteral("Liberation Serif");
    stage.settings.sidebarFontSize = 13;
    stage.settings.sidebarFontBold = -1;
    stage.sidebar.Fill();
    const QFont font = stage.Grid().item(12, 0)->font();
    QCOMPARE(font.family(), QStringLiteral("Liberation Serif"));
    QCOMPARE(font.pointSize(), 13);
    QVERIFY(font.bold());
  }

  void HandPointerIsTheDesktopsWithoutAFile() {
    QCOMPARE(LoadHandPointer(QStringLiteral("/nowhere")).shape(), Qt::PointingHandCursor);
    QTemporaryDir folder;
    QPixmap hand(32, 32);
    hand.fill(Qt::red);
    QVERIFY(hand.save(folder.filePath(QStringLiteral("HandOpen.ico")), "ICO"));
    QCOMPARE(LoadHandPointer(folder.path()).shape(), Qt::BitmapCursor);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::SidebarTest)
#include "sidebar_test.moc"

#include "layout/keep_on_screen.h"

#include <QTest>

#include "fakes/fake_window_geometry.h"

namespace snipdeck {

namespace {

constexpr WorkArea kArea{150, 450, 15000, 10000};

}  // namespace

class KeepOnScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void Places_data() {
    QTest::addColumn<SavedPlacement>("saved");
    QTest::addColumn<bool>("main");
    QTest::addColumn<QList<double>>("expected");
    using L = QList<double>;
    QTest::newRow("fits") << SavedPlacement{1000, 2000, 8000, 7000} << true << L{1000, 2000, 8000, 7000};
    QTest::newRow("never saved") << SavedPlacement{} << true << L{450, 750, 4800, 3200};
    QTest::newRow("never saved, another window") << SavedPlacement{} << false << L{750, 1050, 4800, 3200};
    QTest::newRow("too wide") << SavedPlacement{1000, 2000, 15001, 7000} << true << L{450, 2000, 14400, 7000};
    QTest::newRow("too high, another window")
        << SavedPlacement{1000, 2000, 8000, 12000} << false << L{1000, 1050, 8000, 8800};
    QTest::newRow("sticks out right") << SavedPlacement{9000, 2000, 8000, 7000} << true << L{6850, 2000, 8000, 7000};
    QTest::newRow("sticks out below") << SavedPlacement{1000, 3001, 8000, 7000} << true << L{1000, 3150, 8000, 7000};
    QTest::newRow("just inside") << SavedPlacement{7000, 3000, 8000, 7000} << true << L{7000, 3000, 8000, 7000};
    QTest::newRow("far outside") << SavedPlacement{2000000000, 3000, 2000000000, 7000} << true
                                 << L{450, 3000, 14400, 7000};
  }
  void Places() {
    QFETCH(SavedPlacement, saved);
    QFETCH(bool, main);
    FakeWindow window(saved.left, saved.top, saved.width, saved.height);
    KeepOnScreen(kArea, window, main ? PlacedWindow::Main : PlacedWindow::Other, saved);
    QTEST(window.Place(), "expected");
  }

  void TheSmallestSizeCountsAsTheWindowTookIt() {
    SavedPlacement saved{1000, 2000, 16000, 7000};
    FakeWindow window(saved.left, saved.top, saved.width, saved.height);
    window.smallestWidth = 14800;
    KeepOnScreen(kArea, window, PlacedWindow::Main, saved);
    // 450 and 14800 exceed the width of the area, so the window goes back by what it sticks out.
    QCOMPARE(window.Place(), (QList<double>{50, 2000, 14800, 7000}));
    QCOMPARE(saved.width, 14800);
  }

  void TheTitleBarStaysInReach_data() {
    QTest::addColumn<SavedPlacement>("given");
    QTest::addColumn<QList<double>>("expected");
    using L = QList<double>;
    const double left = kArea.left;
    const double top = kArea.top;
    const double right = kArea.left + kArea.width;
    const double bottom = kArea.top + kArea.height;
    QTest::newRow("inside") << SavedPlacement{1000, 2000, 8000, 7000} << L{1000, 2000, 8000, 7000};
    QTest::newRow("above") << SavedPlacement{1000, -3105, 8000, 7000} << L{1000, top, 8000, 7000};
    QTest::newRow("left") << SavedPlacement{-30000, 2000, 8000, 7000} << L{left, 2000, 8000, 7000};
    QTest::newRow("right") << SavedPlacement{60000, 2000, 8000, 7000} << L{right - 1500, 2000, 8000, 7000};
    QTest::newRow("below") << SavedPlacement{1000, 60000, 8000, 7000} << L{1000, bottom - 1500, 8000, 7000};
  }
  void TheTitleBarStaysInReach() {
    QFETCH(SavedPlacement, given);
    FakeWindow window(given.left, given.top, given.width, given.height);
    KeepReachable(kArea, window);
    QTEST(window.Place(), "expected");
  }
};

}  // namespace snipdeck

QTEST_GUILESS_MAIN(snipdeck::KeepOnScreenTest)
#include "keep_on_screen_test.moc"

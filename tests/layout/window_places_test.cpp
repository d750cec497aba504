#include <QTest>

#include "fakes/fake_window_geometry.h"
#include "fakes/scripted_messages.h"
#include "layout/place_beside.h"
#include "layout/window_sizes.h"

namespace snipdeck {

namespace {

// A panel on the left and one on top.
constexpr WorkArea kArea{150, 450, 15000, 10000};
using Place = QList<double>;

const Message kNoRoom{.text = "Not enough space to move window as requested.\r\n\r\nMinimum required: 5,000 pixels.",
                      .icon = MessageIcon::Exclamation};

}  // namespace

class WindowPlacesTest : public QObject {
  Q_OBJECT

 private slots:
  void Presets_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<Place>("place");
    QTest::newRow("screen") << 0 << Place{150, 450, 15000, 10000};
    QTest::newRow("left half") << 1 << Place{150, 450, 7575, 10000};
    QTest::newRow("top half") << 2 << Place{150, 450, 15000, 5225};
    QTest::newRow("right half") << 3 << Place{7575, 450, 7575, 10000};
    QTest::newRow("lower half") << 4 << Place{150, 5225, 15000, 5225};
    QTest::newRow("centre") << 5 << Place{3649, 1950, 8001, 7000};
    QTest::newRow("centre, full height") << 6 << Place{3649, 450, 8001, 10000};
    QTest::newRow("none") << 7 << Place{1, 2, 8001, 7000};
  }
  void Presets() {
    QFETCH(int, preset);
    FakeWindow window(1, 2, 8001, 7000);
    WindowSizes(kArea).ApplyPreset(preset, window);
    QTEST(window.Place(), "place");
  }

  void Percents_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<Place>("place");
    QTest::newRow("30 %, enlarged to the smallest size") << 0 << Place{3650, 1900, 8000, 7100};
    QTest::newRow("80 %") << 5 << Place{1650, 1450, 12000, 8000};
    QTest::newRow("95 %") << 7 << Place{525, 700, 14250, 9500};
    QTest::newRow("none") << -1 << Place{1, 2, 9000, 9000};
  }
  void Percents() {
    QFETCH(int, index);
    FakeWindow window(1, 2, 9000, 9000);
    window.smallestWidth = 8000;
    window.smallestHeight = 7100;
    WindowSizes(kArea).ApplyPercent(index, window);
    QTEST(window.Place(), "place");
  }

  void Beside_data() {
    QTest::addColumn<Place>("reference");
    QTest::addColumn<bool>("left");
    QTest::addColumn<int>("fill");
    QTest::addColumn<Place>("place");
    const Place there{6000, 1000, 3900, 3000};
    QTest::newRow("left") << there << true << 0 << Place{4000, 1000, 2000, 3000};
    QTest::newRow("left, filled") << there << true << 1 << Place{150, 1000, 5850, 3000};
    QTest::newRow("right") << there << false << 0 << Place{9900, 1000, 2000, 3000};
    QTest::newRow("right, filled") << there << false << 1 << Place{9900, 1000, 5250, 3000};
    QTest::newRow("no room on the left") << Place{5150, 1000, 3900, 3000} << true << 1 << Place{};
    QTest::newRow("no room on the right") << Place{6000, 1000, 4000, 3000} << false << 0 << Place{};
  }
  void Beside() {
    QFETCH(Place, reference);
    QFETCH(bool, left);
    QFETCH(int, fill);
    QFETCH(Place, place);
    ScriptedMessages messages;
    if (place.isEmpty()) messages.Expect(kNoRoom, MessageAnswer::Ok);
    const FakeWindow window(reference[0], reference[1], reference[2], reference[3]);
    FakeWindow moved(1, 2, 2000, 500);
    (left ? PlaceLeftOf : PlaceRightOf)(kArea, messages, window, moved, fill);
    QCOMPARE(moved.Place(), place.isEmpty() ? (Place{1, 2, 2000, 500}) : place);
  }

  // Each value is read when its turn comes, after the earlier ones have been set.
  void BesideItself() {
    ScriptedMessages messages;
    const auto moved = [&](auto place, double left, int fill) {
      FakeWindow window(left, 500, 4000, 3000);
      window.smallestWidth = 800;
      place(kArea, messages, window, window, fill);
      return window.Place();
    };
    QCOMPARE(moved(PlaceRightOf, 1000, 0), (Place{5000, 500, 4000, 3000}));
    QCOMPARE(moved(PlaceRightOf, 1000, 1), (Place{5000, 500, 10150, 3000}));
    QCOMPARE(moved(PlaceLeftOf, 6000, 0), (Place{2000, 500, 4000, 3000}));
    QCOMPARE(moved(PlaceLeftOf, 6000, 1), (Place{150, 500, 800, 3000}));
    // A title bar above the screen is brought back.
    FakeWindow window(0, 0, 2000, 2000);
    PlaceLeftOf(kArea, messages, FakeWindow(6000, -900, 4000, 3000), window, 0);
    QCOMPARE(window.top, kArea.top);
  }
};

}  // namespace snipdeck

QTEST_APPLESS_MAIN(snipdeck::WindowPlacesTest)
#include "window_places_test.moc"

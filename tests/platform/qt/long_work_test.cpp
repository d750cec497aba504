#include <atomic>

#include <QApplication>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "platform/qt/dialogs/progress_dialog.h"
#include "platform/qt/qt_long_work.h"

namespace snipdeck {

class LongWorkTest : public QObject {
  Q_OBJECT

  static ProgressDialog* Shown() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* dialog = qobject_cast<ProgressDialog*>(window); dialog && dialog->isVisible()) return dialog;
    }
    return nullptr;
  }

 private slots:
  void ShortWorkShowsNothing() {
    bool onOtherThread = false;
    QThread* const here = QThread::currentThread();
    QVERIFY(QtLongWork().Run(
        "Loading", [&](const LongWork::Step& step) { onOtherThread = QThread::currentThread() != here && step(0.5); }));
    QVERIFY(onOtherThread);
    QVERIFY(!Shown());
  }

  void LongWorkShowsHowFarItIs() {
    QTimer alive;
    alive.start(20);
    const QSignalSpy beats(&alive, &QTimer::timeout);
    std::atomic<bool> goesOn = true;
    int shown = -1;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
      ProgressDialog* dialog = Shown();
      if (!dialog) return;
      shown = std::max(shown, dialog->findChild<QProgressBar*>()->value());
      if (shown == 250) goesOn = false;
    });
    look.start(20);
    QVERIFY(QtLongWork().Run("Loading", [&](const LongWork::Step& step) {
      while (goesOn && step(0.25)) QThread::msleep(5);
    }));
    QCOMPARE(shown, 250);
    QVERIFY(beats.size() >= 10);
    QVERIFY(!Shown());
  }

  void TurnsComeBeforeAndAfterTheThread() {
    QStringList order;
    const auto turn = [&](const QString& what, int count) {
      return [&order, what, count]() mutable { return order.append(what), --count > 0; };
    };
    const auto work = [&](const LongWork::Step&) { order.append("work"); };
    QVERIFY(QtLongWork().Run("Loading", work, {turn("before", 2), turn("after", 3)}));
    QCOMPARE(order, QStringList({"before", "before", "work", "after", "after", "after"}));
  }

  void CancellingIsForWhatCanBeUndone_data() {
    QTest::addColumn<bool>("isAfter");
    QTest::newRow("before the work") << false;
    QTest::newRow("after it") << true;
  }
  void CancellingIsForWhatCanBeUndone() {
    QFETCH(bool, isAfter);
    QTimer look;
    int seen = 0;
    connect(&look, &QTimer::timeout, this, [&] {
      if (ProgressDialog* dialog = Shown()) ++seen, QTest::keyClick(dialog, Qt::Key_Escape);
    });
    look.start(20);
    const LongWork::Turn slow = [&] { return QThread::msleep(5), seen < 10; };
    bool isWorkDone = false;
    const auto work = [&](const LongWork::Step&) { isWorkDone = true; };
    const bool isWanted = QtLongWork().Run("Loading", work, isAfter ? LongWork::Turns{{}, slow} : LongWork::Turns{slow, {}});
    QCOMPARE(isWanted, isAfter);
    QCOMPARE(isWorkDone, isAfter);
    QVERIFY(!isAfter || seen == 10);
  }

  void CancellingEndsTheWork() {
    QTimer look;
    connect(&look, &QTimer::timeout, this, [] {
      if (ProgressDialog* dialog = Shown()) QTest::keyClick(dialog, Qt::Key_Escape);
    });
    look.start(20);
    bool wasTold = false;
    QVERIFY(!QtLongWork().Run("Saving", [&](const LongWork::Step& step) {
      while (step(-1)) QThread::msleep(5);
      wasTold = true;
    }));
    QVERIFY(wasTold);
    QVERIFY(!Shown());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::LongWorkTest)
#include "long_work_test.moc"

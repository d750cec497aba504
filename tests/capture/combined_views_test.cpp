#include "capture/combined_views.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "capture/box_stage.h"

namespace snipdeck {

class CombinedViewsTest : public QObject {
  Q_OBJECT

  static void CtrlClick(RichTextControl& control) {
    control.resize(200, 80);
    QTest::mouseClick(control.viewport(), Qt::LeftButton, Qt::ControlModifier);
  }

 private slots:
  void AllBoxesStandInOneText() {
    BoxStage stage;
    BoxSet& boxes = stage.boxes;
    boxes.Box(2).SetSelRtf("{\\rtf1\\qc second}");
    boxes.Box(5).SetText("fifth");
    boxes.FocusedBox = 5;
    stage.views.ShowAllInOne();
    RichTextControl& all = boxes.TXTextControl1();
    QCOMPARE(all.Text(), QString("second\nsome bold text\nfifth\n"));
    QCOMPARE(boxes.Frame1->Caption(), QString(" Contents of all boxes in one text "));
    QCOMPARE(all.document()->firstBlock().blockFormat().alignment(), Qt::AlignHCenter);
    QVERIFY(all.document()->lastBlock().blockFormat().alignment() != Qt::AlignHCenter);
    all.SetSelStart(12);
    all.SetSelLength(4);
    QCOMPARE(all.Bold(), -1);
    QVERIFY(!boxes.Box(2).isVisible());
    QCOMPARE(int(boxes.FocusedBox), 5);

    // Closing it by a click must not put all texts into one box.
    CtrlClick(all);
    QVERIFY(!boxes.Frame1->isVisible() && boxes.Box(5).isVisible());
    QCOMPARE(boxes.Box(5).Text(), QString("fifth"));
    boxes.OpenBoxInLargeView(5);
    all.SetText("changed");
    CtrlClick(all);
    QCOMPARE(boxes.Box(5).Text(), QString("changed"));
  }

  void AllInOneLeavesAnEnlargedBoxAlone() {
    BoxStage stage;
    stage.boxes.OpenBoxInLargeView(3);
    stage.views.ShowAllInOne();
    QCOMPARE(stage.boxes.Frame1->Caption(), QString(" Text box 3 "));
    QCOMPARE(stage.boxes.TXTextControl1().Text(), QString("some bold text"));
  }

  void TheLargeViewIsCopied() {
    BoxStage stage;
    QGuiApplication::clipboard()->setText("before");
    stage.messages.Expect("Option only with all boxes in one (display: F12)");
    stage.views.CopyOneBox();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));

    stage.boxes.OpenBoxInLargeView(3);
    stage.messages.Expect("You can retrieve this text by pressing Ctrl-V or using the \"Paste\" option.");
    stage.views.CopyOneBox();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("some bold text"));
    QCOMPARE(stage.messages.Beeps(), 1);
    QCOMPARE(stage.boxes.TXTextControl1().SelLength(), 0);
  }

  void AnEmptyCumulativeBoxLoadsItsFile() {
    BoxStage stage;
    int loads = 0;
    stage.views.SetLoadContentsFile([&] {
      ++loads;
      stage.boxes.TXTextControl2().SetText("from the file");
    });
    stage.views.ToggleCumulative();
    QCOMPARE(loads, 1);
    QCOMPARE(stage.window.focusWidget(), &stage.boxes.TXTextControl2());
    QVERIFY(!stage.boxes.Box(1).isVisible());
    stage.views.ToggleCumulative();
    QVERIFY(stage.boxes.Box(1).isVisible() && !stage.boxes.Frame2->isVisible());
    stage.views.ToggleCumulative();
    QCOMPARE(loads, 1);
  }

  void ThePanelAskedForLastIsInFront() {
    BoxStage stage;
    const auto inFront = [&] {
      const QObjectList& children = stage.window.children();
      return children.indexOf(stage.boxes.Frame1) > children.indexOf(stage.boxes.Frame2) ? 1 : 2;
    };
    stage.views.ToggleCumulative();
    stage.views.ShowAllInOne();
    QVERIFY(stage.boxes.Frame1->isVisible() && stage.boxes.Frame2->isVisible());
    QCOMPARE(inFront(), 1);
    stage.views.ToggleCumulative();
    stage.views.ToggleCumulative();
    QCOMPARE(inFront(), 2);
  }

  void BoxesAreEmptiedAfterAQuestion() {
    BoxStage stage;
    BoxSet& boxes = stage.boxes;
    boxes.CurrentBox = 3;
    boxes.CapturedRtf[3] = RichText::FromPlainText("kept");
    Message question{.text = "Empty all text boxes ?\r\n\r\nContents altered:  NO",
                     .icon = MessageIcon::Question,
                     .buttons = MessageButtons::YesNo,
                     .defaultButton = MessageAnswer::No};
    stage.messages.Expect(question, MessageAnswer::No);
    stage.views.EmptyAllBoxes();
    QCOMPARE(boxes.Box(3).Text(), QString("some bold text"));

    boxes.BoxesAltered = true;
    question.text.replace("NO", "YES");
    stage.messages.Expect(question, MessageAnswer::Yes);
    stage.views.EmptyAllBoxes();
    QCOMPARE(boxes.Box(3).Text(), QString());
    QVERIFY(!boxes.BoxesAltered);
    QCOMPARE(int(boxes.CurrentBox), 1);
    QCOMPARE(boxes.CapturedRtf[3].PlainText(), QString("kept"));

    stage.views.ToggleCumulative();
    stage.messages.Expect("Exit full screen mode [F5] and return to text boxes for this command.");
    stage.views.EmptyAllBoxes();
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::CombinedViewsTest)
#include "combined_views_test.moc"

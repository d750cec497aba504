#include <QLabel>
#include <QTest>
#include <QTextBlock>

#include "capture/capturing_boxes.h"
#include "capture/combined_views.h"

namespace snipdeck {

class ClipboardCaptureTest : public QObject {
  Q_OBJECT

  struct Fixture : CapturingBoxes {
    Fixture() : CapturingBoxes(0) {
      window.show();
      QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    void CopyText(const QString& text) {
      clipboard.HoldText(text);
      capture.ProcessClipboard();
    }
    void CopyRtf(const QByteArray& body, const QString& text) {
      clipboard.HoldRtf("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}" + body + "}", text);
      capture.ProcessClipboard();
    }
    QString Label() const { return boxes.lblFormat->text(); }
    QString Cumulative() { return boxes.TXTextControl2().Text(); }
  };

 private slots:
  void ThirteenCopiesGoRoundTheRing() {
    Fixture f;
    QString all;
    for (int i = 1; i <= 13; ++i) {
      f.CopyText(QString("text %1").arg(i));
      all += QString("text %1\n").arg(i);
    }
    QCOMPARE(f.boxes.CurrentBox, std::int16_t{1});
    QCOMPARE(f.boxes.Box(1).Text(), QString("text 13"));
    for (int n = 2; n <= kBoxCount; ++n) QCOMPARE(f.boxes.Box(n).Text(), QString("text %1").arg(n));
    for (int n = 1; n <= kBoxCount; ++n) QCOMPARE(f.boxes.Box(n).BackColor(), n == 1 ? kLatestBoxColour : kBoxColour);
    QCOMPARE(f.Cumulative(), all);
    QVERIFY(!f.boxes.BoxesAltered);
    QVERIFY(f.boxes.CapturedRtf[0].IsEmpty());
  }

  void RichTextWinsOverTextAndKeepsItsFormat() {
    Fixture f;
    f.CopyRtf("plain {\\b bold}", "the plain form");
    QCOMPARE(f.Label(), QString("RTF text"));
    QCOMPARE(f.boxes.Box(1).Text(), QString("plain bold"));
    for (RichTextControl* control : {&f.boxes.Box(1), &f.boxes.TXTextControl2()}) {
      control->SetSelStart(6);
      control->SetSelLength(4);
      QCOMPARE(control->Bold(), -1);
      control->SetSelStart(0);
      control->SetSelLength(5);
      QCOMPARE(control->Bold(), 0);
    }
    QVERIFY(f.boxes.CapturedRtf[1].Rtf().contains("\\b"));
  }

  void TextWithNothingToShowInItsFormattedFormIsNotLost() {
    Fixture f;
    ClipboardSnapshot picture;
    picture.hasRichText = picture.hasText = true;
    picture.richText = {RichTextPayload::Encoding::Html, "<img src='http://example.org/x.png'>"};
    picture.text = "line\vbreak";
    f.clipboard.Hold(picture);
    f.capture.ProcessClipboard();
    QCOMPARE(f.boxes.Box(1).Text(), QString("line\nbreak"));
  }

  void FormatsDoNotLeakIntoTheNextCapture() {
    Fixture f;
    f.CopyRtf("\\pard\\qc\\b\\fs48 large", "large");
    f.CopyText("small");
    const QTextBlock second = f.boxes.TXTextControl2().document()->begin().next();
    QCOMPARE(second.text(), QString("small"));
    QVERIFY(!(second.blockFormat().alignment() & Qt::AlignHCenter));
    QCOMPARE(second.begin().fragment().charFormat().fontWeight(), int{QFont::Normal});
    QCOMPARE(f.Cumulative(), QString("large\nsmall\n"));
  }

  void ImagesAndFilesAreOnlyNamed() {
    Fixture f;
    f.CopyText("first");
    ClipboardSnapshot image;
    image.hasBitmap = true;
    f.clipboard.Hold(image);
    f.capture.ProcessClipboard();
    QCOMPARE(f.Label(), QString("image"));

    ClipboardSnapshot files;
    files.hasFileList = true;
    files.files = {"/tmp/a", "/tmp/b c"};
    f.clipboard.Hold(files);
    f.capture.ProcessClipboard();
    QCOMPARE(f.Label(), QString("file/folder names"));
    QCOMPARE(f.boxes.txtView.Text(), QString("/tmp/a\n/tmp/b c\n"));

    f.clipboard.Hold({});
    f.capture.ProcessClipboard();
    QCOMPARE(f.Label(), QString("file/folder names"));
    QCOMPARE(f.boxes.CurrentBox, std::int16_t{1});
    QCOMPARE(f.Cumulative(), QString("first\n"));

    // The names do not travel along with what is copied next.
    f.CopyRtf("next", "next");
    QCOMPARE(f.boxes.Box(2).Text(), QString("next"));
  }

  void NothingIsCapturedWhileABoxIsEnlarged() {
    Fixture f;
    f.CopyText("first");
    f.boxes.OpenBoxInLargeView(1);
    f.CopyRtf("second", "second");
    QCOMPARE(f.Label(), QString("plain text"));
    QCOMPARE(f.boxes.CurrentBox, std::int16_t{1});
    QCOMPARE(f.Cumulative(), QString("first\n"));
    f.startWithCumulative = 1;
    f.CopyText("third");
    QCOMPARE(f.boxes.Box(2).Text(), QString("third"));
  }

  void FocusStaysWhereTheUserTypes() {
    Fixture f;
    f.window.activateWindow();
    f.boxes.Box(5).setFocus();
    QTRY_VERIFY(f.boxes.Box(5).hasFocus());
    f.CopyText("x");
    QVERIFY(f.boxes.Box(5).hasFocus());

    CombinedViews(f.boxes, f.messages).ToggleCumulative();
    f.boxes.lblFormat->setFocusPolicy(Qt::StrongFocus);
    f.boxes.lblFormat->setFocus();
    f.CopyText("y");
    QVERIFY(f.boxes.TXTextControl2().hasFocus());
  }

  void UndoIsForTheUsersEditsOnly() {
    Fixture f;
    f.CopyText("captured");
    QVERIFY(!f.boxes.Box(1).document()->isUndoAvailable());
    QVERIFY(!f.boxes.TXTextControl2().document()->isUndoAvailable());
    QTest::keyClicks(&f.boxes.Box(1), "abc");
    QVERIFY(f.boxes.Box(1).document()->isUndoAvailable());
    f.boxes.Box(1).undo();
    QCOMPARE(f.boxes.Box(1).Text(), QString("captured"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::ClipboardCaptureTest)
#include "clipboard_capture_test.moc"

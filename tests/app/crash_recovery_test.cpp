#include "app/crash_recovery.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>

#include "capture/capturing_boxes.h"
#include "fakes/file_size_limit.h"

namespace snipdeck {

namespace {

/// One run of the program, as far as its boxes go.
struct Run : CapturingBoxes {
  CrashRecovery recovery;

  explicit Run(const QString& path) : recovery(boxes, clipboard, path) {
    recovery.Recover();
    recovery.StartTracking();
  }
  void Change() {
    recovery.WhileCapturing([this] { capture.ProcessClipboard(); });
  }
  void Copy(const QString& text) {
    clipboard.HoldText(text);
    Change();
  }
  RichTextControl& Cumulative() { return boxes.TXTextControl2(); }
};

/// What the control shows, as RTF in which neighbouring runs of one look are one run.
QByteArray RtfOf(const RichTextControl& control) {
  return RichText::FromRtf(RichText::FromDocument(*control.document()).Rtf()).Rtf();
}

void EditAtRandom(QTextDocument& document, QRandomGenerator& random) {
  QTextCursor cursor(&document);
  cursor.setPosition(static_cast<int>(random.bounded(document.characterCount() - 1)));
  switch (random.bounded(6)) {
    case 0:
      return cursor.insertText("typed in between");
    case 1:
      cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(random.bounded(200)));
      return cursor.removeSelectedText();
    case 2: {
      QTextCharFormat bold;
      bold.setFontWeight(QFont::Bold);
      cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(random.bounded(100)));
      return cursor.mergeCharFormat(bold);
    }
    case 3:
      return cursor.insertBlock();
    case 4: {
      QTextBlockFormat centred;
      centred.setAlignment(Qt::AlignHCenter);
      return cursor.mergeBlockFormat(centred);
    }
    default:
      cursor.movePosition(QTextCursor::End);
      return cursor.insertText("at the end\nand once more");
  }
}

}  // namespace

class CrashRecoveryTest : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;
  QString m_path;

 private slots:
  void init() { m_path = m_folder.filePath(QString::fromLatin1(QTest::currentTestFunction())); }

  void CopiesAndEditsComeBackWithTheirFormats() {
    QByteArray cumulative;
    {
      Run run(m_path);
      run.clipboard.HoldRtf("{\\rtf1 some {\\b bold} text}", "some bold text");
      run.Change();
      run.Copy("second");
      QTextCursor(run.boxes.Box(1).document()).insertText("typed ");
      run.recovery.Flush();
      cumulative = RtfOf(run.Cumulative());
    }
    Run again(m_path);
    QCOMPARE(again.boxes.CurrentBox, std::int16_t{2});
    QCOMPARE(again.boxes.CapturedRtf[1].PlainText(), QString("typed some bold text"));
    QVERIFY(again.boxes.CapturedRtf[1].Rtf().contains("\\b"));
    QCOMPARE(again.boxes.CapturedRtf[2].PlainText(), QString("second"));
    QVERIFY(again.boxes.CapturedRtf[3].IsEmpty());
    QCOMPARE(again.boxes.Box(1).Text(), QString());
    QCOMPARE(RtfOf(again.Cumulative()), cumulative);
  }

  void EditsOfALongTextAreKeptInParts() {
    QRandomGenerator random(20261122);
    QByteArray expected;
    qint64 before = 0;
    {
      Run run(m_path);
      for (int i = 0; i < 400; ++i) {
        run.clipboard.HoldRtf("{\\rtf1 copy {\\b number} " + QByteArray::number(i) + "\\par\\qc " +
                                  QByteArray("word ").repeated(60) + "}",
                              "x");
        run.Change();
      }
      QVERIFY(run.Cumulative().document()->characterCount() > 100'000);
      before = QFileInfo(m_path).size();
      for (int round = 0; round < 60; ++round) {
        EditAtRandom(*run.Cumulative().document(), random);
        if (round % 3 == 2) run.recovery.Flush();
        if (round % 10 == 9) run.Copy("in between");
      }
      run.recovery.Flush();
      expected = RtfOf(run.Cumulative());
    }
    const qint64 grown = QFileInfo(m_path).size() - before;
    qInfo("%lld bytes for the copies, %lld more for the edits", before, grown);
    const QByteArray returned = RtfOf(Run(m_path).Cumulative());
    const auto differs = std::mismatch(returned.begin(), returned.end(), expected.begin(), expected.end()).first;
    const qsizetype at = std::max<qsizetype>(differs - returned.begin() - 200, 0);
    QCOMPARE(returned.mid(at, 400), expected.mid(at, 400));
  }

  // Parts of the edit are in the file, others are not, when the next edit comes.
  void ALongEditIsKeptInParts() {
    QByteArray expected;
    {
      Run run(m_path);
      run.Copy(QString("a line of the long text\n").repeated(20'000));
      QTextDocument& document = *run.Cumulative().document();
      const qint64 before = QFileInfo(m_path).size();
      QTextCursor all(&document);
      all.select(QTextCursor::Document);
      QTextCharFormat bold;
      bold.setFontWeight(QFont::Bold);
      all.mergeCharFormat(bold);
      QTRY_VERIFY(QFileInfo(m_path).size() > before);
      QTextCursor early(&document);
      early.insertText("typed early");
      QTextCursor late(&document);
      late.movePosition(QTextCursor::End);
      late.insertText("typed late\n");
      QTextCursor(run.boxes.Box(2).document()).insertText("replaced by the next copy");
      run.Copy("another");
      run.Copy("one more");
      QTextCursor(&document).insertText("typed between copies");
      run.Copy("the last");
      run.recovery.Flush();
      expected = RtfOf(run.Cumulative());
    }
    Run again(m_path);
    QVERIFY(RtfOf(again.Cumulative()) == expected);
    QCOMPARE(again.boxes.CapturedRtf[2].PlainText(), QString("another"));
    QCOMPARE(again.boxes.CapturedRtf[4].PlainText(), QString("the last"));
    QCOMPARE(again.boxes.CurrentBox, std::int16_t{4});
  }

  void ManyCopiesAndEditsComeBackInTheirOrder() {
    QByteArrayList expected;
    std::int16_t current = 0;
    const auto contents = [](Run& run) {
      QByteArrayList texts{RtfOf(run.Cumulative()), run.boxes.lblFormat->text().toUtf8()};
      return texts;
    };
    {
      Run run(m_path);
      for (int i = 0; i < 60; ++i) {
        if (i % 5 == 0) run.clipboard.HoldRtf("{\\rtf1 {\\i formatted} \\qc " + QByteArray::number(i) + "}", "x");
        if (i % 5 != 0) run.clipboard.HoldText(QString("plain %1").arg(i) + (i % 7 == 0 ? "\r" : i % 3 == 0 ? "\n" : ""));
        run.Change();
        if (i % 11 == 0) QTextCursor(run.Cumulative().document()).insertText("edited ");
        if (i % 13 == 0) QTextCursor(run.boxes.Box(1 + i % 12).document()).insertText("edited too ");
        if (i % 4 == 0) run.recovery.Flush();
      }
      run.recovery.Flush();
      expected = contents(run);
      for (int n = 1; n <= kBoxCount; ++n) expected << run.boxes.Box(n).Text().toUtf8();
      current = run.boxes.CurrentBox;
    }
    Run again(m_path);
    QByteArrayList returned = contents(again);
    for (int n = 1; n <= kBoxCount; ++n) returned << again.boxes.CapturedRtf[static_cast<size_t>(n)].PlainText().toUtf8();
    QCOMPARE(returned, expected);
    QCOMPARE(again.boxes.CurrentBox, current);
  }

  void ACopyBesideALongTextWritesItselfOnly() {
    Run run(m_path);
    const QString line = QString("a line of the long text\n");
    run.Copy(line.repeated(440'000));  // 10 MB
    const qint64 before = QFileInfo(m_path).size();
    QVERIFY(before > 10'000'000);
    QList<qint64> times;
    for (int i = 0; i < 51; ++i) {
      QElapsedTimer timer;
      timer.start();
      run.Copy(QString("copy %1").arg(i));
      times.append(timer.nsecsElapsed() / 1000);
    }
    std::sort(times.begin(), times.end());
    qInfo("a copy beside 10 MB: median %lld us, longest %lld us", times[25], times.last());
    QVERIFY(QFileInfo(m_path).size() - before < 51 * 64);

    QTextCursor cursor(run.Cumulative().document());
    cursor.setPosition(5'000'000);
    cursor.insertText("in the middle");
    QElapsedTimer timer;
    timer.start();
    run.recovery.Flush();
    qInfo("an edit in the middle of 10 MB: %lld us", timer.nsecsElapsed() / 1000);
    QVERIFY(QFileInfo(m_path).size() - before < 51 * 64 + 2000);
  }

  void AFullDiskCostsNothingOnceThereIsRoomAgain() {
    {
      Run run(m_path);
      run.Copy("first");
      {
        const FileSizeLimit limit(QFileInfo(m_path).size() + 30);
        run.Copy("second, which does not fit");
        run.recovery.Flush();
      }
      run.Copy("third");
    }
    Run again(m_path);
    QCOMPARE(again.boxes.CapturedRtf[2].PlainText(), QString("second, which does not fit"));
    QCOMPARE(again.Cumulative().Text(), QString("first\nsecond, which does not fit\nthird\n"));
    QCOMPARE(QDir(m_folder.path()).entryList({"*.damaged-*"}), QStringList());
  }

  void TheLastCopyIsNotFiledTwice() {
    { Run(m_path).Copy("the same"); }
    Run again(m_path);
    again.Copy("the same");
    QCOMPARE(again.boxes.CurrentBox, std::int16_t{1});
    again.Copy("the same");
    QCOMPARE(again.boxes.CurrentBox, std::int16_t{2});
  }

  void WhatIsNotCapturedIsNotKept() {
    Run run(m_path);
    ClipboardSnapshot picture;
    picture.hasBitmap = true;
    run.clipboard.Hold(picture);
    run.Change();
    run.clipboard.Hold({});
    run.Change();
    QVERIFY(!QFile::exists(m_path));
    run.Copy("text");
    QVERIFY(QFile::exists(m_path));
    run.recovery.Forget();
    QVERIFY(!QFile::exists(m_path));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::CrashRecoveryTest)
#include "crash_recovery_test.moc"

#include <QTemporaryDir>
#include <QTest>

#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/stored_box_set.h"
#include "capture/clipboard_capture.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_clipboard_writer.h"
#include "fakes/scripted_messages.h"
#include "fakes/work_at_once.h"
#include "platform/qt/qt_window_geometry.h"
#include "platform/whole_file.h"

namespace snipdeck {

namespace {

class FakeScreen : public Screen {
 public:
  WorkArea Area() const override { return {0, 0, 12000, 12000}; }
};

const Message kSaveQuestion{
    .text = "Text boxes have been altered by user.\t\r\n\r\nSave before exiting QM Snipdeck ?\r\n",
    .icon = MessageIcon::Question,
    .buttons = MessageButtons::YesNoCancel};
const Message kClipboardQuestion{
    .text = "Save cumulative clipboard text box to\r\n\r\nWindows clipboard before exiting QM Snipdeck ?\r\n",
    .icon = MessageIcon::Question,
    .buttons = MessageButtons::YesNoCancel};

}  // namespace

class StartStopTest : public QObject {
  Q_OBJECT

  struct Fixture {
    QTemporaryDir temporary;
    QString folder = temporary.path();
    QString settingsPath = folder + "/QM_Snipdeck.ini";
    QString firstSettings;
    QMainWindow window;
    ScriptedMessages messages;
    FakeClipboard clipboard;
    FakeClipboardWriter writer;
    FakeChangeWatch watch;
    FakeScreen screen;
    Settings settings;
    BoxSet& boxes = *new BoxSet(window, messages);
    CombinedViews views{boxes, messages};
    SettingsFile settingsFile{settingsPath, settings, messages};
    WorkAtOnce longWork;
    StoredBoxSet stored{boxes, messages, longWork};
    BoxStorage storage{stored, messages, settings.storageFolder};
    CrashRecovery recovery{boxes, clipboard, folder + "/recovery"};
    QtWindowGeometry geometry{window};
    MainWindowParts parts{window,   boxes,    views,  settings, settingsFile, storage,
                          recovery, geometry, screen, watch,    writer,       messages};
    StartUp start{parts, folder, folder + "/first_settings.ini"};
    ShutDown stop{parts};

    void Start(const QByteArray& settingsText = "") {
      if (!settingsText.isEmpty()) QVERIFY(WriteWholeFile(settingsPath, settingsText));
      start.Load();
      window.show();
      QVERIFY(QTest::qWaitForWindowExposed(&window));
      geometry.FitFrame();
      start.Activated([] {});
    }
    bool HasSettings() const { return QFile::exists(settingsPath); }
  };

  static QByteArray CumulativeMode() {
    Settings settings;
    settings.startWithCumulative = 1;
    settings.loadLastFile = 1;
    settings.buttonColour = -1;
    return FormatSettings(settings);
  }

 private slots:
  void AStartWithNeitherFileWorks() {
    Fixture f;
    QStringList steps;
    f.start.Steps().applyButtonColour = [&] { steps << "colour"; };
    f.start.Steps().buildSidebar = [&] { steps << "sidebar of " + f.window.windowTitle(); };
    f.start.Steps().applyControlFonts = [&] { steps << "fonts"; };
    f.start.Steps().loadContentsFile = [&] { steps << "contents"; };
    f.Start();
    QCOMPARE(steps, (QStringList{"colour", "sidebar of Storage folder: " + f.folder, "fonts"}));
    QCOMPARE(f.settings.storageFolder, f.folder);
    QCOMPARE(f.settings.contentsFileName, QString("Snipdeck_Contents.rtf"));
    QVERIFY(f.watch.IsWatching() && f.boxes.Box(1).isVisible());
    QVERIFY(!f.HasSettings());
    f.start.Activated([] {});
    QCOMPARE(steps.last(), QString("fonts"));
    QCOMPARE(steps.size(), 4);
  }

  void TheWindowIsPlacedAndKeptOnTheScreen() {
    Fixture f;
    f.Start("150\r\n6000\r\n9000\r\n9000\r\n");
    // It would stick out to the right by 3,000.
    QCOMPARE(f.geometry.Left(), 2700.0);
    QCOMPARE(f.geometry.Width(), 9000.0);
    QVERIFY(f.stop.QueryUnload());
    QVERIFY(ReadWholeFile(f.settingsPath).Value().startsWith("150\r\n2700\r\n9000\r\n9000\r\n"));
  }

  void TheCumulativeModeOpensAndLoads() {
    Fixture f;
    QStringList steps;
    f.start.Steps().applyButtonColour = [&] { steps << "colour"; };
    f.start.Steps().loadContentsFile = [&] { steps << "contents"; };
    f.Start(CumulativeMode());
    QCOMPARE(steps, QStringList("contents"));
    QVERIFY(f.boxes.Frame2->isVisible() && !f.boxes.Box(1).isVisible());
    QCOMPARE(f.boxes.Frame2->Caption(), QString(" Cumulative clipboard text box "));
  }

  void AnUnalteredCloseAsksNothing() {
    Fixture f;
    f.Start();
    f.boxes.Box(1).SetText("captured");
    f.boxes.OpenBoxInLargeView(1);
    f.boxes.TXTextControl1().SetZoomValue(150);
    QVERIFY(f.stop.QueryUnload());
    QVERIFY(!f.boxes.Frame1->isVisible() && !f.watch.IsWatching());
    QCOMPARE(int{f.settings.largeViewZoom}, 150);
    QVERIFY(f.HasSettings());
    QCOMPARE(f.writer.calls, QStringList("hand over"));
    QVERIFY(f.stop.HasEnded() && f.stop.QueryUnload());
  }

  void EachAnswerAboutAlteredBoxesIsHeeded() {
    Fixture f;
    f.Start();
    f.boxes.BoxesAltered = true;
    f.views.ShowCumulative();
    f.messages.Expect(kSaveQuestion, MessageAnswer::Cancel);
    QVERIFY(!f.stop.QueryUnload());
    QVERIFY(!f.HasSettings() && f.watch.IsWatching() && f.boxes.Box(1).isVisible() && f.boxes.BoxesAltered);

    f.boxes.Box(2).SetText("to be saved");
    f.messages.Expect(kSaveQuestion, MessageAnswer::Yes);
    f.messages.Expect("Text boxes saved to disk in this folder:\r\n\r\n" + f.folder);
    QVERIFY(f.stop.QueryUnload());
    QVERIFY(ReadWholeFile(f.folder + "/QM_Snipdeck_Text_02.rtf").Value().contains("to be saved"));

    Fixture other;
    other.Start();
    other.boxes.BoxesAltered = true;
    other.messages.Expect(kSaveQuestion, MessageAnswer::No);
    QVERIFY(other.stop.QueryUnload());
    QVERIFY(other.HasSettings() && !QFile::exists(other.folder + "/QM_Snipdeck_Text_02.rtf"));
  }

  void WhatCouldNotBeSavedComesBack() {
    Fixture f;
    f.Start();
    f.boxes.Box(3).SetText("typed");
    f.recovery.Flush();
    f.boxes.BoxesAltered = true;
    const QString path = f.folder + "/QM_Snipdeck_Text_03.rtf";
    QVERIFY(QDir(f.folder).mkdir("QM_Snipdeck_Text_03.rtf"));
    f.messages.Expect(kSaveQuestion, MessageAnswer::Yes);
    f.messages.Expect({.text = "Cannot save this file :\r\n\r\n" + path +
                               "\r\n\r\nThe error was probably triggered for the following reason : \r\n\r\n\"" +
                               WriteWholeFile(path, {}).Error().text + "\"\r\n",
                       .icon = MessageIcon::Critical},
                      MessageAnswer::Ok);
    f.messages.Expect("Text boxes saved to disk in this folder:\r\n\r\n" + f.folder);
    QVERIFY(f.stop.QueryUnload());
    QVERIFY(QFile::exists(f.folder + "/recovery"));
  }

  void TheCumulativeTextGoesToTheClipboard() {
    Fixture f;
    f.Start(CumulativeMode());
    f.boxes.BoxesAltered = true;
    f.boxes.TXTextControl2().SetSelRtf("{\\rtf1 plain {\\b bold}}");
    f.messages.Expect(kClipboardQuestion, MessageAnswer::Cancel);
    QVERIFY(!f.stop.QueryUnload());
    QVERIFY(f.writer.calls.isEmpty());
    f.messages.Expect(kClipboardQuestion, MessageAnswer::Yes);
    QVERIFY(f.stop.QueryUnload());
    QCOMPARE(f.writer.calls, (QStringList{"empty", "put", "hand over"}));
    QCOMPARE(f.writer.offer.text, QString("plain bold"));
    QVERIFY(f.writer.offer.rtf.contains("\\b") && f.writer.offer.html.contains("bold"));
  }

  void AForcedEndAsksNothingAndKeepsWhatIsUnsaved() {
    for (const bool altered : {true, false}) {
      Fixture f;
      f.Start();
      f.clipboard.HoldText("copied");
      f.recovery.WhileCapturing([&f] {
        const std::int16_t always = 1;
        ClipboardCapture(f.boxes, f.clipboard, always).ProcessClipboard();
      });
      f.boxes.BoxesAltered = altered;
      f.stop.KeepForSessionEnd();
      QVERIFY(f.HasSettings() && f.watch.IsWatching());
      f.stop.EndForced();
      QVERIFY(!f.watch.IsWatching());
      QCOMPARE(QFile::exists(f.folder + "/recovery"), altered);
    }
  }

  void SettingsThatCannotBeWrittenAreReportedOnlyToAUser() {
    Fixture f;
    f.Start();
    QVERIFY(QDir(f.folder).mkdir("QM_Snipdeck.ini"));
    f.stop.KeepForSessionEnd();
    const Outcome refused = f.settingsFile.TryToWrite();
    f.messages.Expect({.text = "Cannot save this file :\r\n\r\n" + f.settingsPath +
                               "\r\n\r\nThe error was probably triggered for the following reason : \r\n\r\n\"" +
                               refused.Error().text + "\"\r\n",
                       .icon = MessageIcon::Critical},
                      MessageAnswer::Ok);
    QVERIFY(f.stop.QueryUnload());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::StartStopTest)
#include "start_stop_test.moc"

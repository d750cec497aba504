#include "app/editor_desk.h"

#include <QFileInfo>
#include <QTimer>

#include "editor/editor_stage.h"

namespace snipdeck {

using namespace Qt::StringLiterals;

namespace {

/// One run of the program, as far as the editor goes.
struct Run {
  explicit Run(EditorWorld& around) : world(around) {}

  EditorWorld& world;
  QWidget owner;
  EditorDesk desk{world.Services(), owner, world.Path(u"editor.recovery"_s)};

  frm_RTF_HTM& Window() { return *owner.findChild<frm_RTF_HTM*>(); }
  RichTextControl& Text() { return Window().TextControl(); }
  /// Opens the editor by `open` and does `work` while it is shown.
  void Use(const std::function<void()>& open, const std::function<void()>& work) {
    QTimer::singleShot(0, &owner, [&] {
      work();
      if (Window().isVisible()) Window().close();
    });
    open();
  }
  /// The run ends as by a crash: without a question, and with what was written by then.
  void Crash() {
    desk.EndForced();
    Window().close();
  }
};

}  // namespace

class EditorDeskTest : public QObject {
  Q_OBJECT

 private:
  static Message Question(const QString& path) {
    return {
        .text =
            u"The program ended while this text was changed and not yet saved:\r\n\r\n"_s + path +
            u"\r\n\r\nOpen it in the text editor as it was last?\r\n\r\n\"No\" forgets the changes, \"Cancel\" asks "
            "again later."_s,
        .icon = MessageIcon::Question,
        .buttons = MessageButtons::YesNoCancel};
  }
  static bool IsKept(const EditorWorld& world) { return QFileInfo::exists(world.Path(u"editor.recovery"_s)); }

  /// A run that opens `path` as the topical notes, types, and crashes.
  static void LoseChanges(EditorWorld& world, const QString& path) {
    Run run{world};
    world.settings.topicalNotesFile = path;
    run.Use([&] { run.desk.OpenTopicalNotes(); },
            [&] {
              run.Text().SetBold(1);
              QTest::keyClicks(&run.Text(), u"new "_s);
              run.Text().SetPageMargins(0, 700);
              run.Crash();
            });
    QVERIFY(IsKept(world));
  }

 private slots:
  void ChangesComeBackAfterACrash() {
    EditorWorld world;
    const QString path = world.Write(u"notes.rtf"_s, "{\\rtf1\\paperw9000 {\\i old}}");
    LoseChanges(world, path);
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QVERIFY(!(QFileInfo(world.Path(u"editor.recovery"_s)).permissions() & others));
    for (int life = 0; life < 2; ++life) {  // and after one more
      Run run{world};
      run.desk.TakeOverLost();
      world.messages.Expect(Question(path), MessageAnswer::Yes);
      run.Use([&] { QVERIFY(run.desk.AskAboutLost()); },
              [&] {
                RichTextControl& text = run.Text();
                QCOMPARE(text.Text(), u"new old"_s);
                text.SetSelStart(1);
                QVERIFY(text.Bold() && !text.document()->isUndoAvailable());
                text.SetSelStart(7);
                QVERIFY(text.Italic());
                QCOMPARE(text.PageMargins(0), 700);
                QCOMPARE(text.PageWidth(), 9000);
                QCOMPARE(run.Window().windowTitle(), "File: "_L1 + path);
                QCOMPARE(run.Window().Document().ChangedMark(), 1);
                run.Crash();
              });
      QVERIFY(IsKept(world));
    }
    QVERIFY(EditorWorld::Read(path).contains("old") && !EditorWorld::Read(path).contains("new"));
  }

  void AnswerDecidesAboutTheLostText() {
    EditorWorld world;
    const QString path = world.Write(u"notes.txt"_s, "old");
    LoseChanges(world, path);
    Run run{world};
    run.desk.TakeOverLost();
    world.messages.Expect(Question(path), MessageAnswer::Cancel);
    QVERIFY(!run.desk.AskAboutLost());
    world.messages.Expect(Question(path), MessageAnswer::Cancel);
    run.desk.NewTextFile();  // put off again, so the editor does not open
    QVERIFY(IsKept(world));
    world.messages.Expect(Question(path), MessageAnswer::No);
    run.Use([&] { run.desk.NewTextFile(); }, [&] { QCOMPARE(run.Text().Text(), QString()); });
    QVERIFY(!IsKept(world));
    Run next{world};
    next.desk.TakeOverLost();
    QVERIFY(next.desk.AskAboutLost());
  }

  void NothingIsKeptOfWhatIsSafe() {
    EditorWorld world;
    world.settings.topicalNotesFile = world.Write(u"notes.txt"_s, "old");
    Run run{world};
    run.Use([&] { run.desk.OpenTopicalNotes(); },
            [&] {
              run.desk.KeepForSessionEnd();
              QVERIFY(!IsKept(world));  // unchanged
              QTest::keyClicks(&run.Text(), u"x"_s);
              QTRY_VERIFY(IsKept(world));
              run.Window().mnuSave_Click();
              QVERIFY(!IsKept(world));
              QTest::keyClicks(&run.Text(), u"y"_s);
              run.desk.KeepForSessionEnd();
              QVERIFY(IsKept(world));
              world.question.Expect(DocumentDecision::Discard);
            });
    QVERIFY(!IsKept(world));
    QCOMPARE(EditorWorld::Read(world.settings.topicalNotesFile), QByteArray("xold"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::EditorDeskTest)
#include "editor_desk_test.moc"

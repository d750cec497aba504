#include "capture/box_interaction.h"

#include <QDialog>
#include <QInputMethodEvent>
#include <QTest>
#include <QTimer>

#include "capture/box_stage.h"

namespace snipdeck {

namespace {

constexpr auto kS = Qt::ShiftModifier;
constexpr auto kC = Qt::ControlModifier;
constexpr auto kA = Qt::AltModifier;

/// What a key did, in words: what was asked of the window, which dialog came, and how the text with "two words" in it,
/// its first word selected, looks afterwards.
class KeyTrial {
 public:
  explicit KeyTrial(RichTextControl& control) : m_control(control) {
    control.SetText("two words");
    control.SetSelStart(0);
    control.SetSelLength(3);
  }

  QString Press(BoxStage& stage, int key, Qt::KeyboardModifiers modifiers, const QString& typed = {}) {
    stage.asked.clear();
    stage.boxes.BoxesAltered = false;
    QStringList done;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [&done] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      done << dialog->windowTitle();
      dialog->reject();
    });
    closer.start(0);
    QKeyEvent event(QEvent::KeyPress, key, modifiers, typed);
    QCoreApplication::sendEvent(&m_control, &event);
    done << stage.asked << Dialog() << Looks();
    if (stage.boxes.BoxesAltered) done << "altered";
    done.removeAll(QString());
    return done.join(", ");
  }

 private:
  QString Dialog() const {
    auto* dialog = m_control.findChild<QDialog*>();
    if (!dialog || !dialog->isVisible()) return {};
    const QString title = dialog->windowTitle();
    dialog->close();
    return title;
  }
  QString Looks() const {
    QStringList looks;
    if (m_control.Text() != "two words") looks << m_control.Text().replace('\t', "[tab]");
    if (m_control.SelLength() == 9) looks << "all";
    if (m_control.Bold()) looks << "bold";
    if (m_control.Italic()) looks << "italic";
    if (m_control.Underline()) looks << "underline";
    if (m_control.Strikeout()) looks << "strikeout";
    if (m_control.ShowFormatting()) looks << "marks";
    if (m_control.ViewMode()) looks << "pages";
    return looks.join(", ");
  }

  RichTextControl& m_control;
};

}  // namespace

class BoxInteractionTest : public QObject {
  Q_OBJECT

 private slots:
  void Keys_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("inBox");
    QTest::addColumn<QString>("inPanel");
    const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers, const char* inBox,
                        const char* inPanel = nullptr) {
      QTest::newRow(name) << key << modifiers << QString(inBox) << QString(inPanel ? inPanel : inBox);
    };
    row("Ctrl+Alt+S", Qt::Key_S, kC | kA, "switch focus");
    row("Alt+X", Qt::Key_X, kA, "switch focus");
    row("Ctrl+Alt+V", Qt::Key_V, kC | kA, "clipboard");
    row("Shift+Alt+F7", Qt::Key_F7, kS | kA, "sidebar");
    row("Alt+F7", Qt::Key_F7, kA, "");
    row("Ctrl+V", Qt::Key_V, kC, "pasted words, altered");
    row("Ctrl+X", Qt::Key_X, kC, " words, altered");
    row("Backspace", Qt::Key_Backspace, {}, " words, altered");
    row("Shift+Delete", Qt::Key_Delete, kS, " words, altered");
    row("Ctrl+B", Qt::Key_B, kC, "");
    row("Alt+B", Qt::Key_B, kA, "bold, altered");
    row("Ctrl+Shift+B", Qt::Key_B, kC | kS, "bold, altered");
    row("Ctrl+Shift+I", Qt::Key_I, kC | kS, "italic, altered");
    row("Ctrl+Alt+U", Qt::Key_U, kC | kA, "underline, altered");
    row("Ctrl+Shift+X", Qt::Key_X, kC | kS, "strikeout, altered");
    row("Ctrl+Alt+X", Qt::Key_X, kC | kA, "strikeout, altered");
    row("Ctrl+0", Qt::Key_0, kC, "Font, altered");
    row("Ctrl+1", Qt::Key_1, kC, "Font, altered");
    row("Ctrl+4", Qt::Key_4, kC, "Paragraph, altered");
    row("Ctrl+F", Qt::Key_F, kC, "Find");
    row("Ctrl+R", Qt::Key_R, kC, "Replace");
    row("Ctrl+F3", Qt::Key_F3, kC, "marks");
    row("Alt+F3", Qt::Key_F3, kA, "", "pages");
    row("Ctrl+A", Qt::Key_A, kC, "all");
    row("Tab", Qt::Key_Tab, {}, "[tab] words, altered");
    row("Shift+Insert", Qt::Key_Insert, kS, "pasted words, altered");
    row("Ctrl+Shift+L", Qt::Key_L, kC | kS, "left 0");
    row("Ctrl+Shift+R", Qt::Key_R, kC | kS, "right 0");
    row("Ctrl+Alt+L", Qt::Key_L, kC | kA, "left 1");
    row("Ctrl+Alt+R", Qt::Key_R, kC | kA, "right 1");
  }

  void Keys() {
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, inBox);
    QFETCH(QString, inPanel);
    BoxStage stage;
    stage.clipboard.HoldText("pasted");
    QCOMPARE(KeyTrial(stage.boxes.Box(3)).Press(stage, key, modifiers), inBox);
    stage.views.ShowCumulative();
    QCOMPARE(KeyTrial(stage.boxes.TXTextControl2()).Press(stage, key, modifiers), inPanel);
  }

  void CtrlUpAndDownGoRound() {
    BoxStage stage;
    const int steps[][3] = {{1, Qt::Key_Up, 12}, {11, Qt::Key_Down, 12}, {12, Qt::Key_Down, 1}, {5, Qt::Key_Up, 4}};
    for (const auto& [from, key, to] : steps) {
      stage.boxes.Box(from).setFocus();
      QTest::keyClick(&stage.boxes.Box(from), static_cast<Qt::Key>(key), kC);
      QCOMPARE(stage.window.focusWidget(), &stage.boxes.Box(to));
      QCOMPARE(int(stage.boxes.FocusedBox), to);
    }
  }

  void OnlyTypingInABoxAltersTheBoxes() {
    BoxStage stage;
    QCOMPARE(KeyTrial(stage.boxes.Box(2)).Press(stage, Qt::Key_Escape, {}, "\x1b"), QString());
    QCOMPARE(KeyTrial(stage.boxes.Box(2)).Press(stage, Qt::Key_Right, {}), QString());
    QCOMPARE(KeyTrial(stage.boxes.Box(2)).Press(stage, Qt::Key_E, {}, "e"), QString("e words, altered"));
    QCOMPARE(KeyTrial(stage.boxes.TXTextControl2()).Press(stage, Qt::Key_E, {}, "e"), QString("e words"));
    QCOMPARE(KeyTrial(stage.boxes.Box(2)).Press(stage, Qt::Key_Q, kA, "q"), QString());
    QCOMPARE(KeyTrial(stage.boxes.Box(2)).Press(stage, Qt::Key_Q, kC | kA, "@"), QString("@ words, altered"));

    stage.boxes.BoxesAltered = false;
    QInputMethodEvent composed;
    QCoreApplication::sendEvent(&stage.boxes.Box(2), &composed);
    QVERIFY(!stage.boxes.BoxesAltered);
    composed.setCommitString(QString(QChar(0x8A9E)));
    QCoreApplication::sendEvent(&stage.boxes.Box(2), &composed);
    QVERIFY(stage.boxes.BoxesAltered);

    stage.boxes.BoxesAltered = false;
    emit stage.boxes.Box(4).Edited();
    QVERIFY(stage.boxes.BoxesAltered);
  }

  void BriefHelpTellsTheStorageFolder() {
    BoxStage stage;
    stage.messages.Expect(
        "Ctrl-Left Mouse Button expands a box to a full window.\r\nCtrl-Left Mouse Button closes the full window "
        "again,\r\nwriting back any changes made to text.\r\n\r\nStorage folder:  /home/user/snippets");
    stage.interaction.ShowBriefHelp();
  }

  void ClicksWithOtherKeysStayWithTheText() {
    BoxStage stage;
    stage.boxes.Box(3).resize(200, 80);
    QWidget* text = stage.boxes.Box(3).viewport();
    QTest::mouseClick(text, Qt::LeftButton, kC | kS);
    QTest::mouseClick(text, Qt::LeftButton);
    QVERIFY(!stage.boxes.Frame1->isVisible());
    QCOMPARE(int(stage.boxes.FocusedBox), 3);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::BoxInteractionTest)
#include "box_interaction_test.moc"

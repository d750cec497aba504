#include <QAbstractTextDocumentLayout>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTextTable>
#include <QTimer>

#include "editor/editor_stage.h"
#include "platform/qt/ruler.h"

namespace snipdeck {

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kAlt = Qt::AltModifier;

/// Closes the dialog that opens next and tells its class.
class DialogCatcher {
 public:
  DialogCatcher() {
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
      for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (!dialog || !dialog->isVisible()) continue;
        kind = QString::fromLatin1(dialog->metaObject()->className());
        dialog->reject();
      }
    });
    m_timer.start(5);
  }
  QString kind;

 private:
  QTimer m_timer;
};

}  // namespace

class EditorCommandsTest : public QObject {
  Q_OBJECT

 private:
  static void Trigger(EditorStage& stage, const QString& how) {
    if (auto* action = stage.window.findChild<QAction*>(how)) return action->trigger();
    if (auto* button = stage.window.findChild<QPushButton*>(how)) return button->click();
    const QKeySequence keys = QKeySequence::fromString(how, QKeySequence::PortableText);
    QVERIFY2(keys.count() == 1, qPrintable(how));
    stage.window.activateWindow();  // a dialog may have been open
    QVERIFY(QTest::qWaitForWindowActive(&stage.window));
    QTest::keyClick(&stage.Text(), keys[0].key(), keys[0].keyboardModifiers());
  }

 private slots:
  void EveryWayToADialogOpensIt_data() {
    QTest::addColumn<QStringList>("ways");
    QTest::addColumn<QString>("kind");
    const auto row = [](const char* name, const QStringList& ways, const QString& kind) {
      QTest::newRow(name) << ways << kind;
    };
    row("find", {u"mnuEdit_Find"_s, u"cmdFind"_s, u"Ctrl+F"_s}, u"Find"_s);
    row("replace", {u"mnuEdit_Replace"_s, u"Ctrl+R"_s}, u"Find"_s);
    row("fonts", {u"mnuEdit_AllFonts"_s, u"cmdFont"_s, u"Ctrl+0"_s}, u"Font"_s);
    row("paragraph", {u"mnuEdit_Paragraph"_s, u"cmdParagraph"_s, u"Ctrl+4"_s}, u"Paragraph"_s);
    row("bullets", {u"mnuEdit_Bullets"_s, u"Ctrl+F5"_s}, u"Bullets"_s);
    row("insert table", {u"mnuEdit_FormatInsert"_s}, u"Table"_s);
    row("page", {u"mnuView_PageSettings"_s, u"cmdPage"_s, u"Ctrl+7"_s}, u"Page"_s);
  }
  void EveryWayToADialogOpensIt() {
    QFETCH(QStringList, ways);
    QFETCH(QString, kind);
    EditorStage stage;
    stage.Open();
    for (const QString& way : ways) {
      DialogCatcher catcher;
      Trigger(stage, way);
      QTRY_VERIFY2(catcher.kind.contains(kind), qPrintable(way + ": "_L1 + catcher.kind));
    }
    QCOMPARE(stage.window.focusWidget(), &stage.Text());
    QCOMPARE(stage.Document().ChangedMark(), 0);
  }

  void FileCommandsByEveryWay() {
    EditorStage stage;
    const QString path = stage.Write(u"a.txt"_s, "a");
    stage.Open(OpenMode::File, path);
    const auto saved = [&stage] { return std::exchange(stage.notice.shown, 0) == 1; };
    for (const char* way : {"mnuSave", "cmdFileSaveButton", "Ctrl+S", "Ctrl+F12"}) {
      Trigger(stage, QString::fromLatin1(way));
      QVERIFY2(saved(), way);
    }
    const FileRequest saveAs{u"Save text to disk"_s, path, {{u"All files (*.*)"_s, u"*.*"_s}}, {}};
    for (const char* way : {"mnuSaveAs", "cmdSaveAs", "Ctrl+Shift+S", "F10", "Shift+F10", "Ctrl+Alt+F10"}) {
      stage.dialogs.ExpectSave(saveAs, {});
      Trigger(stage, QString::fromLatin1(way));
    }
    for (const char* way : {"mnuOpenFile", "cmdOpenFile", "Ctrl+O"}) {
      stage.dialogs.ExpectOpen({u"Load file from disk"_s,
                                u""_s,
                                {{u"RTF files (*.rtf)"_s, u"*.rtf"_s},
                                 {u"Text files (*.txt)"_s, u"*.txt"_s},
                                 {u"All files (*.*)"_s, u"*.*"_s}},
                                {}},
                               {});
      Trigger(stage, QString::fromLatin1(way));
    }
    for (const char* way : {"mnuNewFile", "cmdFileNewButton", "Ctrl+N"}) {
      stage.Document().Start(OpenMode::File, path);
      Trigger(stage, QString::fromLatin1(way));
      QCOMPARE(stage.Document().FileName(), u"Untitled.rtf"_s);
    }
    for (const char* way : {"mnuExit", "cmdExitProg"}) {
      stage.window.show();
      Trigger(stage, QString::fromLatin1(way));
      QVERIFY2(!stage.window.isVisible(), way);
    }
  }

  void ClipboardCommandsMarkWhatTheyChange_data() {
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mark");
    QTest::newRow("copy") << u"Ctrl+C"_s << u"abc"_s << 0;
    QTest::newRow("copy button") << u"cmdCopyButton"_s << u"abc"_s << 0;
    QTest::newRow("cut") << u"Ctrl+X"_s << u"ac"_s << 1;
    QTest::newRow("cut button") << u"cmdCutButton"_s << u"ac"_s << 1;
    QTest::newRow("paste") << u"Ctrl+V"_s << u"anewc"_s << 1;
    QTest::newRow("paste button") << u"cmdPasteButton"_s << u"anewc"_s << 1;
  }
  void ClipboardCommandsMarkWhatTheyChange() {
    QFETCH(QString, way);
    QFETCH(QString, text);
    QFETCH(int, mark);
    EditorStage stage;
    stage.clipboard.HoldText(u"new"_s);
    stage.Open(OpenMode::File, stage.Write(u"a.txt"_s, "abc"));
    stage.Text().SetSelStart(1);
    stage.Text().SetSelLength(1);
    Trigger(stage, way);
    QCOMPARE(stage.Text().Text(), text);
    QCOMPARE(stage.Document().ChangedMark(), mark);
    QVERIFY(stage.Text().hasFocus());
    Trigger(stage, u"Ctrl+A"_s);
    QCOMPARE(stage.Text().SelText(), text);
  }

  void OtherProgramsByEveryWay() {
    EditorStage stage;
    stage.Open();
    for (const char* way : {"mnuFile_Explorer", "cmdExplorer", "Ctrl+Shift+F9", "Ctrl+Alt+X"}) {
      Trigger(stage, QString::fromLatin1(way));
      QCOMPARE(stage.shell.calls.takeLast(), u"explore [C:\\Work] for %1"_s.arg(stage.window.winId()));
    }
    Trigger(stage, u"Ctrl+Alt+D"_s);
    QCOMPARE(stage.shell.calls.takeLast(), u"desktop"_s);
    stage.files.files.insert(u"C:\\Drive_G\\Quillhome\\QM_FileDesk\\QM_Pocket\\QM_Pocket.exe"_s);
    Trigger(stage, u"Ctrl+F1"_s);
    QVERIFY(stage.shell.calls.takeLast().startsWith(u"start [C:\\Drive_G\\"_s));
    QVERIFY(stage.shell.calls.isEmpty());
  }

  // A key with another shift state is the control's.
  void ShiftStateHasToAgree_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"Ctrl+Shift+F12", "Ctrl+Alt+C", "Ctrl+Alt+0", "Alt+7", "F3", "Ctrl+Alt+S", "Ctrl+Home",
                            "F1", "Ctrl+Shift+D", "Alt+X"})
      QTest::newRow(way) << QString::fromLatin1(way);
  }
  void ShiftStateHasToAgree() {
    QFETCH(QString, way);
    EditorStage stage;
    stage.Open();
    DialogCatcher catcher;
    Trigger(stage, way);
    QTest::qWait(20);
    QVERIFY2(catcher.kind.isEmpty(), qPrintable(catcher.kind));
    QVERIFY(stage.shell.calls.isEmpty() && !stage.Text().ShowFormatting() && stage.Text().ViewMode() == 0);
  }

  void ViewCommands() {
    EditorStage stage;
    stage.Open();
    for (const char* way : {"mnuView_Formatting", "Ctrl+F3"}) {
      const bool before = stage.Text().ShowFormatting();
      Trigger(stage, QString::fromLatin1(way));
      QCOMPARE(stage.Text().ShowFormatting(), !before);
    }
    const int width = stage.Text().parentWidget()->width();
    for (const char* way : {"mnuView_PageView", "cmdViewMode", "Alt+F3", "Alt+F3"}) {
      const bool wasPages = stage.Text().ViewMode() == 2;
      Trigger(stage, QString::fromLatin1(way));
      QCOMPARE(stage.Text().ViewMode(), wasPages ? 0 : 2);
      QCOMPARE(stage.Text().x(), wasPages ? 21 : 3);
      QCOMPARE(stage.Text().width(), wasPages ? width - 21 : width);
    }
    QCOMPARE(stage.Document().ChangedMark(), 0);
  }

  void CentresOverTheMainWindow() {
    EditorStage stage;
    stage.Open();
    for (const char* way : {"mnuCentreOnScreen", "cmdCentreOnScreen", "Ctrl+F2"}) {
      stage.window.showMaximized();
      Trigger(stage, QString::fromLatin1(way));
      QVERIFY(!stage.window.isMaximized());
      QCOMPARE(stage.window.frameGeometry(), QRect(125, 70, 950, 760));
    }
  }

  void TableDialogNeedsOneCell() {
    EditorStage stage;
    stage.Open();
    const Message outside{.text = u"Cursor not within a table or more than one cell is selected."_s,
                          .icon = MessageIcon::Exclamation};
    for (const char* way : {"mnuEdit_FormatTable", "Ctrl+8"}) {
      stage.messages.Expect(outside, MessageAnswer::Ok);
      Trigger(stage, QString::fromLatin1(way));
    }
    QTextTable* table = stage.Text().textCursor().insertTable(2, 2);
    stage.Text().setTextCursor(table->cellAt(0, 0).firstCursorPosition());
    {
      DialogCatcher catcher;
      Trigger(stage, u"Ctrl+8"_s);
      QVERIFY2(catcher.kind.contains(u"Table"_s), qPrintable(catcher.kind));
    }
    QTextCursor several = table->cellAt(0, 0).firstCursorPosition();
    several.setPosition(table->cellAt(1, 1).firstPosition(), QTextCursor::KeepAnchor);
    stage.Text().setTextCursor(several);
    stage.messages.Expect(outside, MessageAnswer::Ok);
    Trigger(stage, u"Ctrl+8"_s);
    QCOMPARE(stage.window.focusWidget(), &stage.Text());
  }

  void TextBoxStandsBelowALineOfItsOwn() {
    for (const QString& way : {u"mnuEdit_TextBox"_s, u"Ctrl+Shift+B"_s}) {
      EditorStage stage;
      stage.Open(OpenMode::File, stage.Write(u"a.txt"_s, "before after"));
      stage.Text().SetSelStart(7);
      Trigger(stage, way);
      QCOMPARE(stage.Text().SelStart(), 7);
      const QList<QTextFrame*> frames = stage.Text().document()->rootFrame()->childFrames();
      QCOMPARE(frames.size(), 1);
      const int box = frames.front()->objectIndex() + 1;
      QCOMPARE(stage.Text().TextFrameAttribute(box, 1, 1, 2), 3);
      for (const int side : {9, 10, 12}) QCOMPARE(stage.Text().TextFrameAttribute(box, 1, 1, side), 180);
      QCOMPARE(stage.Text().TextFrameAttribute(box, 1, 1, 11), 200);
      QVERIFY(frames.front()->firstPosition() > 7);
      QVERIFY(stage.Text().Text().startsWith(u"before \n"_s) && stage.Text().Text().endsWith(u"after"_s));
      QCOMPARE(stage.Document().ChangedMark(), 1);
      const double drawn = stage.Text().document()->documentLayout()->frameBoundingRect(frames.front()).height();
      stage.Text().undo();
      QCOMPARE(stage.Text().Text(), u"before after"_s);
      stage.Text().redo();
      QTextFrame* const again = stage.Text().document()->rootFrame()->childFrames().value(0);
      QVERIFY(again);
      again->firstCursorPosition().insertText(u"x"_s);
      QCOMPARE(drawn, stage.Text().document()->documentLayout()->frameBoundingRect(again).height());
      stage.Document().Start(OpenMode::New, {});
      QCOMPARE(stage.Text().document()->rootFrame()->childFrames().size(), 0);
    }
  }

  void GuideLineFollowsTheRuler() {
    EditorStage stage;
    stage.Open();
    auto* ruler = stage.window.findChild<TXRuler*>();
    auto* line = stage.window.findChild<QWidget*>(u"tabHairline"_s);
    QVERIFY(!line->isVisible());
    QTest::mousePress(ruler, Qt::RightButton, {}, QPoint(100, 10));
    QVERIFY(!line->isVisible());
    QTest::mouseRelease(ruler, Qt::RightButton, {}, QPoint(100, 10));
    QTest::mousePress(ruler, Qt::LeftButton, {}, QPoint(100, 10));
    QVERIFY(line->isVisible());
    QCOMPARE(line->mapTo(&stage.window, QPoint()).x(), ruler->mapTo(&stage.window, QPoint(100, 0)).x());
    QCOMPARE(line->height(), stage.Text().height());
    QMouseEvent dragged(QEvent::MouseMove, QPointF(150, 10), ruler->mapToGlobal(QPointF(150, 10)), Qt::NoButton,
                        Qt::LeftButton, {});
    QCoreApplication::sendEvent(ruler, &dragged);
    QCOMPARE(line->mapTo(&stage.window, QPoint()).x(), ruler->mapTo(&stage.window, QPoint(150, 0)).x());
    QTest::mouseRelease(ruler, Qt::LeftButton, {}, QPoint(150, 10));
    QVERIFY(!line->isVisible());
  }

  void PrintsCopiesOfARangeInOrder() {
    EditorStage stage;
    QByteArray pages;
    for (const char* words : {"one", "two two", "three three three"}) pages += QByteArray(words) + "\\page ";
    stage.Open(OpenMode::File, stage.Write(u"a.rtf"_s, "{\\rtf1 " + pages + "four four four four}"));
    for (const char* way : {"mnuFile_Print", "cmdPrint", "Ctrl+P"}) {
      stage.Text().SetViewMode(0);
      Trigger(stage, QString::fromLatin1(way));  // cancelled
      QCOMPARE(stage.Text().ViewMode(), 2);
      QCOMPARE(std::exchange(stage.printer.offer, {}).pages, 4);
    }
    QVERIFY(stage.printer.sheets.isEmpty());

    stage.printer.error = 0;
    stage.printer.request = {.copies = 2, .hasRange = true, .firstPage = 2, .lastPage = 3};
    Trigger(stage, u"Ctrl+P"_s);
    const QList<QImage>& sheets = stage.printer.sheets;
    QCOMPARE(sheets.size(), 4);
    QVERIFY(sheets[0] == sheets[2] && sheets[1] == sheets[3] && sheets[0] != sheets[1]);
    for (const auto& [first, last, count] : {std::tuple(0, 1, 1), std::tuple(3, 2, 0), std::tuple(4, 9, 1)}) {
      stage.printer.sheets.clear();
      stage.printer.request = {.copies = 1, .hasRange = true, .firstPage = first, .lastPage = last};
      Trigger(stage, u"Ctrl+P"_s);
      QCOMPARE(stage.printer.sheets.size(), count);
    }
  }

  void PrinterProblemIsTold() {
    EditorStage stage;
    stage.Open();
    const Message problem{.text =
                              u"There was a problem printing to your printer!\r\n\r\nCheck that it is powered up, "
                              "online and has enough paper.\r\n"_s,
                          .icon = MessageIcon::Exclamation};
    stage.messages.Expect(problem, MessageAnswer::Ok);
    stage.printer.error = 28663;
    Trigger(stage, u"Ctrl+P"_s);
    stage.messages.Expect(problem, MessageAnswer::Ok);
    stage.printer.error = 0;
    stage.printer.isOutOfPaper = true;
    Trigger(stage, u"Ctrl+P"_s);
  }

  // Names and keys for people who do not see the pictures.
  void BarsAreToldToEverybody() {
    EditorStage stage;
    stage.Open();
    QStringList shortcuts;
    for (QAction* top : stage.window.menuBar()->actions()) {
      QStringList mnemonics;
      for (const QAction* action : top->menu()->actions()) {
        if (action->isSeparator()) continue;
        QVERIFY2(action->isEnabled(), qPrintable(action->objectName()));
        mnemonics.append(QKeySequence::mnemonic(action->text()).toString());
        if (!action->shortcut().isEmpty()) shortcuts.append(action->shortcut().toString());
      }
      QCOMPARE(QSet<QString>(mnemonics.begin(), mnemonics.end()).size(), mnemonics.size());
    }
    QCOMPARE(QSet<QString>(shortcuts.begin(), shortcuts.end()).size(), shortcuts.size());
    const auto buttons = stage.window.findChild<QWidget*>(u"picToolbar"_s)->findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 16);
    int right = 0;
    for (const QPushButton* button : buttons) {
      QVERIFY2(button->x() > right, qPrintable(button->objectName()));
      right = button->geometry().right();
      QVERIFY(!button->toolTip().isEmpty());
      QCOMPARE(button->accessibleName(), button->toolTip());
    }
  }

  void ShownModallyAtItsPlaceUntilItCloses() {
    EditorStage stage;
    stage.settings.editorLeft = 1500;
    stage.settings.editorTop = 900;
    stage.settings.editorWidth = 12000;
    stage.settings.editorHeight = 9000;
    QRect seen;
    QTimer::singleShot(0, &stage.window, [&] {
      seen = QRect(stage.window.pos(), stage.window.size());
      stage.window.ShowModal(OpenMode::File, stage.Path(u"ignored"_s));  // it is shown already
      QCOMPARE(QApplication::activeModalWidget(), &stage.window);
      stage.window.move(200, 100);
      stage.window.close();
    });
    stage.window.ShowModal(OpenMode::New, {});
    QCOMPARE(seen, QRect(100, 60, 800, 600));
    QCOMPARE(stage.settings.editorLeft, 3000);
    QCOMPARE(stage.settings.editorTop, 1500);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::EditorCommandsTest)
#include "editor_commands_test.moc"

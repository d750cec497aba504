#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTest>

#include "app/main_window_stage.h"
#include "platform/qt/command_button.h"

namespace snipdeck {

class MainWindowCommandsTest : public QObject {
  Q_OBJECT

 private:
  static QList<QMenu*> MenusOf(frmSnipdeck& window) {
    QList<QMenu*> menus;
    for (const QAction* action : window.menuBar()->actions()) menus.append(action->menu());
    return menus;
  }
  static int DrawnPixels(QWidget& button) {
    const QImage picture = button.grab().toImage();
    const QRgb ground = picture.pixel(picture.width() / 2, 5);
    int drawn = 0;
    for (int y = 6; y < picture.height() - 6; ++y)
      for (int x = 8; x < picture.width() - 8; ++x) drawn += picture.pixel(x, y) != ground;
    return drawn;
  }

 private slots:
  void EveryKeyIsOneCommands() {
    MainWindowStage stage;
    QSet<QString> keys, names;
    int entries = 0;
    for (QMenu* menu : MenusOf(stage.window)) {
      QSet<QString> mnemonics;
      QVERIFY(!menu->actions().first()->isSeparator() && !menu->actions().last()->isSeparator());
      for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        ++entries;
        names.insert(action->objectName());
        mnemonics.insert(QKeySequence::mnemonic(action->text()).toString());
        if (!action->text().contains(u"E&xit") && !action->text().endsWith(u"font") &&
            !action->text().endsWith(u"colour"))
          QVERIFY2(!action->shortcut().isEmpty(), qPrintable(action->text()));
        if (!action->shortcut().isEmpty()) {
          QVERIFY2(!keys.contains(action->shortcut().toString()), qPrintable(action->text()));
          keys.insert(action->shortcut().toString());
        }
      }
      qsizetype commands = 0;
      for (const QAction* action : menu->actions()) commands += !action->isSeparator();
      QCOMPARE(mnemonics.size(), commands);
    }
    QCOMPARE(entries, 27);
    QCOMPARE(names.size(), entries);
  }

  void TopRowStandsFromLeftToRight() {
    MainWindowStage stage;
    int right = 0;
    QWidget* widget = stage.Find<CommandButton>("cmdExit");
    for (int k = 0; k < kTopRowButtonCount; ++k) {
      auto* button = qobject_cast<CommandButton*>(widget);
      QVERIFY(button);
      if (k == 0) {
        QCOMPARE(button->geometry(), QRect(8, 4, 36, 27));
      } else {
        QCOMPARE(button->pos(), QPoint(48 + 32 * (k - 1), 5));
      }
      QVERIFY(button->x() > right);
      right = button->geometry().right();
      QVERIFY(!button->toolTip().isEmpty());
      QCOMPARE(button->accessibleName(), button->toolTip());
      QVERIFY2(DrawnPixels(*button) > 20, qPrintable(button->objectName()));
      widget = widget->nextInFocusChain();
    }
    // Tab goes on from the last button to the sidebar, and from there to the boxes.
    while (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy()) widget = widget->nextInFocusChain();
    QCOMPARE(widget->objectName(), QStringLiteral("iGridListBar"));
  }

  void ButtonRunsWhatItsEntryRuns() {
    MainWindowStage stage;
    stage.window.Boxes().FocusedBox = 3;
    stage.Find<CommandButton>("cmdViewBoxLarge")->click();
    QVERIFY(stage.window.Boxes().Frame1->isVisible());
    stage.Find<QAction>("mnuViewBoxLarge")->trigger();
    QVERIFY(!stage.window.Boxes().Frame1->isVisible());
    stage.Find<CommandButton>("cmdDesktop")->click();
    stage.Find<CommandButton>("cmdExplorer")->click();
    QCOMPARE(stage.shell.calls.size(), 2);
    QCOMPARE(stage.shell.calls.first(), QStringLiteral("desktop"));
    QVERIFY(stage.shell.calls.last().startsWith(QStringLiteral("explore [%1] for ").arg(stage.folder.path())));
  }

  void ButtonAndEntryAreGreyedOutTogether() {
    MainWindowStage stage;
    const QList<QPair<const char*, const char*>> pairs = {
        {"cmdLoadPrevious", "mnuLoadBoxes"},     {"cmdAutosaveTextBoxes", "mnuSaveTextBoxes"},
        {"cmdToggleSideBar", "mnuView_SideBar"}, {"cmdClip", "mnuClipStyles"},
        {"cmdAllTypes", "mnuShowAllTypes"},      {"cmdExit", "mnuExit"}};
    for (const auto& [button, entry] : pairs)
      QCOMPARE(stage.Find<CommandButton>(button)->isEnabled(), stage.Find<QAction>(entry)->isEnabled());
    const auto* grid = stage.Find<SidebarGrid>("iGridListBar");
    for (int row = 1; row <= 13; ++row)
      QCOMPARE(grid->item(row - 1, 0)->flags().testFlag(Qt::ItemIsEnabled), SidebarCommand(row) != nullptr);
  }

  void SidebarRowsReachTheirPrograms() {
    MainWindowStage stage;
    auto* grid = stage.Find<SidebarGrid>("iGridListBar");
    emit grid->RowChosen(8);
    emit grid->RowChosen(12);
    QVERIFY(stage.shell.calls.first().startsWith(QStringLiteral("explore [C:\\Work] for ")));
    QCOMPARE(stage.shell.calls.last(), QStringLiteral("desktop"));
    emit grid->RowChosen(13);
    QVERIFY(!stage.window.isVisible());
  }

  void FocusGoesToTheTextAndToTheSidebar() {
    MainWindowStage stage;
    BoxSet& boxes = stage.window.Boxes();
    Sidebar& sidebar = *stage.window.findChild<Sidebar*>();
    FocusSwitch focus(boxes, sidebar);
    boxes.FocusedBox = 4;
    focus.SwitchFocus();
    QCOMPARE(stage.window.focusWidget(), &boxes.Box(4));
    focus.SwitchFocus();  // to a sidebar that is hidden: the focus stays, and the next turn is the text's
    QCOMPARE(stage.window.focusWidget(), &boxes.Box(4));
    sidebar.ToggleShown();
    boxes.Box(2).setFocus();
    focus.SwitchFocus();
    QCOMPARE(stage.window.focusWidget(), &boxes.Box(4));
    focus.SwitchFocus();
    QCOMPARE(stage.window.focusWidget(), &sidebar.Grid());
    stage.window.mnuCumulative_Click();
    focus.SwitchFocus();
    QCOMPARE(stage.window.focusWidget(), &boxes.TXTextControl2());
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::MainWindowCommandsTest)
#include "main_window_commands_test.moc"

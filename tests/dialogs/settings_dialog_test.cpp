#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "dialogs/frm_settings.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"

namespace snipdeck {

namespace {

struct Stage {
  QWidget window;
  Settings settings;
  ScriptedMessages messages;
  ScriptedDialogs dialogs;
  BoxSet& boxes = *new BoxSet(window, messages);
  Sidebar& sidebar = *new Sidebar(window, settings, messages, {});
  FontsAndColours looks{window, settings, dialogs, messages};

  Stage() {
    settings.buttonColour = kNoColour;
    settings.customBrowser = "/usr/bin/old";
    settings.loadLastFile = 1;
    sidebar.Fill();
    window.show();
  }
  SettingsDialogServices Services() { return {settings, boxes, sidebar, looks, dialogs, dialogs}; }
};

template <typename Widget>
Widget& Find(QWidget& window, const char* name) {
  return *window.findChild<Widget*>(QString::fromLatin1(name));
}

void Click(QWidget& window, const char* name) {
  Find<QAbstractButton>(window, name).click();
}

}  // namespace

class SettingsDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void ShowsWhatIsSetAndTellsWhatItIsFor() {
    Stage stage;
    frmSettings dialog(stage.Services(), nullptr);
    QVERIFY(Find<QCheckBox>(dialog, "chkAutoLoadLastFile").isChecked());
    QVERIFY(!Find<QCheckBox>(dialog, "chkUseControlFonts").isChecked());
    QCOMPARE(Find<QLineEdit>(dialog, "txtCustomBrowser").text(), QString("/usr/bin/old"));
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
      QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->objectName()));
  }

  void CheckBoxesChangeTheirSettingsAtOnce() {
    Stage stage;
    frmSettings dialog(stage.Services(), nullptr);
    Click(dialog, "chkAutoLoadLastFile");
    Click(dialog, "chkUseControlFonts");
    QCOMPARE(int(stage.settings.loadLastFile), 0);
    QCOMPARE(int(stage.settings.useControlFonts), 1);
    Click(dialog, "chkStartWithCumulativeBox");
    QCOMPARE(int(stage.settings.startWithCumulative), 1);
    QVERIFY(stage.boxes.Frame2->isVisible() && !stage.boxes.Box(1).isVisible());
    QCOMPARE(stage.boxes.Frame2->Caption(), QString(" Cumulative clipboard textbox "));
    Click(dialog, "chkStartWithCumulativeBox");
    QCOMPARE(int(stage.settings.startWithCumulative), 0);
    QVERIFY(!stage.boxes.Frame2->isVisible() && stage.boxes.Box(12).isVisible());
  }

  void FontsAreKeptAndShown() {
    Stage stage;
    stage.settings.sidebarFontName = "Serif";
    stage.settings.sidebarFontSize = 9;
    frmSettings dialog(stage.Services(), nullptr);
    stage.dialogs.ExpectFont({"Serif", 9, false}, FontChoice{"Monospace", 13.6, true});
    Click(dialog, "cmdSidebarFont");
    QCOMPARE(stage.settings.sidebarFontName, QString("Monospace"));
    QCOMPARE(int(stage.settings.sidebarFontSize), 14);
    QCOMPARE(int(stage.settings.sidebarFontBold), -1);
    const QFont shown = stage.sidebar.Grid().item(12, 0)->font();
    QCOMPARE(shown.family(), QString("Monospace"));
    QCOMPARE(shown.pointSize(), 14);
    QVERIFY(shown.bold());

    stage.settings.useControlFonts = 1;
    stage.dialogs.ExpectFont({"", 0, false}, FontChoice{"Monospace", 12, false});
    Click(dialog, "cmdControlFont");
    QCOMPARE(int(stage.settings.controlFontSize), 12);
    QCOMPARE(Find<QPushButton>(dialog, "cmdClose").font().pointSize(), 12);
  }

  void ACancelledColourIsKeptAsNone() {
    Stage stage;
    stage.settings.buttonColour = 255;
    frmSettings dialog(stage.Services(), nullptr);
    stage.dialogs.ExpectColour(255, true, kNoColour);
    Click(dialog, "cmdButtonColour");
    QCOMPARE(stage.settings.buttonColour, kNoColour);
  }

  void OnlyTheButtonsChangeTheFiles() {
    Stage stage;
    frmSettings dialog(stage.Services(), nullptr);
    Find<QLineEdit>(dialog, "txtCustomBrowser").setText("typed");
    const FileRequest browser{.title = "Get viewer for internet files (.HTM(L), etc.)",
                              .fileName = "/usr/bin/old",
                              .filters = {{"Programs (*.exe)", "*.exe"}},
                              .defaultExtension = {}};
    stage.dialogs.ExpectOpen(browser, "");
    Click(dialog, "cmdCustomBrowser");
    QCOMPARE(stage.settings.customBrowser, QString("/usr/bin/old"));
    stage.dialogs.ExpectOpen(browser, "/usr/bin/new");
    Click(dialog, "cmdCustomBrowser");
    QCOMPARE(stage.settings.customBrowser, QString("/usr/bin/new"));
    QCOMPARE(Find<QLineEdit>(dialog, "txtCustomBrowser").text(), QString("/usr/bin/new"));

    stage.dialogs.ExpectOpen(
        {.title = "Get \"Topical Notes\" file",
         .fileName = "",
         .filters = {{"RTF files (*.rtf)", "*.rtf"}, {"Text files (*.txt)", "*.txt"}, {"All files (*.*)", "*.*"}},
         .defaultExtension = {}},
        "/home/user/notes.rtf");
    Click(dialog, "cmdTopicalNotes");
    QCOMPARE(stage.settings.topicalNotesFile, QString("/home/user/notes.rtf"));
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::SettingsDialogTest)
#include "settings_dialog_test.moc"

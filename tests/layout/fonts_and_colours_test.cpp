#include "layout/fonts_and_colours.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>

#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"
#include "layout/system_colours.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/status_bar.h"
#include "platform/readable_colour.h"

namespace snipdeck {

class FontsAndColoursTest : public QObject {
  Q_OBJECT

  struct Stage {
    QMainWindow window;
    QWidget* client = new QWidget;
    QPushButton* button = new QPushButton(client);
    QPushButton* exit = new QPushButton(client);
    QLabel* label = new QLabel(client);
    QGroupBox* panel = new QGroupBox(client);
    RichTextControl* text = new RichTextControl(panel);
    TXStatusBar* bar = new TXStatusBar(panel);
    QDialog* other = new QDialog(&window);
    QPushButton* othersButton = new QPushButton(other);
    Settings settings;
    ScriptedDialogs dialogs;
    ScriptedMessages messages;
    FontsAndColours looks{window, settings, dialogs, messages};

    Stage() {
      window.setCentralWidget(client);
      exit->setObjectName("cmdExit");
      label->setObjectName("lblFormats");
      settings.buttonColour = kNoColour;
      settings.controlFontName = "DejaVu Serif";
      settings.controlFontSize = 13;
      settings.controlFontBold = -1;
    }
  };

  static QColor Ground(const QWidget& widget) { return widget.palette().color(QPalette::Window); }
  static QColor Face(const QWidget& widget) { return widget.palette().color(QPalette::Button); }
  static Message FontQuestion(const char* current) {
    return {.text = QString("Use custom font for controls?\r\n\r\nCurrent value: ") + current,
            .icon = MessageIcon::Question,
            .buttons = MessageButtons::YesNo};
  }

 private slots:
  void TextsStandOut() {
    for (const auto& [ground, text] : {std::pair{"#000000", "#000000"},
                                       {"#ffff00", "#000000"},
                                       {"#ff0000", "#000000"},
                                       {"#0000ff", "#ffffff"},
                                       {"#800000", "#ffffff"},
                                       {"#808080", "#000000"}}) {
      const QColor expected = ground == text ? QColor(Qt::white) : QColor(text);
      QCOMPARE(ReadableOn(QColor(ground)).name(), expected.name());
    }
  }

  void SystemColoursAreThoseOfThePalette() {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(4, 5, 6));
    const auto translated = [&](std::uint32_t colour) {
      return TranslateColour(static_cast<OleColour>(colour), palette);
    };
    QCOMPARE(translated(0x8000000F), std::optional(OleFromRgb(1, 2, 3)));
    QCOMPARE(translated(0x80000011), std::optional(OleFromRgb(4, 5, 6)));
    QCOMPARE(translated(0x00332211), std::optional(0x332211));
    for (const std::uint32_t none : {0x8000001Fu, 0x80FFFFFFu, 0xFFFFFFFFu, 0x40000000u})
      QVERIFY(!translated(none).has_value());
  }

  void ButtonColourColoursTheMainWindowOnly() {
    Stage stage;
    const QColor before = Ground(*stage.panel);
    const QColor face = Face(*stage.exit);
    const QColor dark(0, 0, 128);
    stage.dialogs.ExpectColour(kNoColour, true, OleFromRgb(0, 0, 128));
    stage.looks.ChooseButtonColour();
    QCOMPARE(stage.settings.buttonColour, OleFromRgb(0, 0, 128));
    for (const QWidget* widget : {stage.client, static_cast<QWidget*>(stage.label)}) QCOMPARE(Ground(*widget), dark);
    QCOMPARE(stage.label->palette().color(QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(Face(*stage.button), dark);
    QCOMPARE(stage.button->palette().color(QPalette::ButtonText), QColor(Qt::white));
    QCOMPARE(Face(*stage.exit), face);
    QCOMPARE(Ground(*stage.panel), before);
    QCOMPARE(Face(*stage.othersButton), face);

    // Cancelling forgets the choice, and leaves what is on the screen.
    stage.dialogs.ExpectColour(OleFromRgb(0, 0, 128), true, kNoColour);
    stage.looks.ChooseButtonColour();
    QCOMPARE(stage.settings.buttonColour, kNoColour);
    QCOMPARE(Face(*stage.button), dark);
  }

  void ControlFontGoesToControlsOnly() {
    Stage stage;
    const QFont text = stage.text->font();
    const QFont bar = stage.bar->font();
    stage.looks.ApplyControlFont(stage.window);
    QVERIFY(stage.label->font().family() != "DejaVu Serif");
    stage.settings.useControlFonts = 1;
    stage.looks.ApplyControlFont(stage.window);
    for (const QWidget* widget : QList<QWidget*>{stage.button, stage.exit, stage.label, stage.panel}) {
      QCOMPARE(widget->font().family(), QString("DejaVu Serif"));
      QCOMPARE(widget->font().pointSize(), 13);
      QVERIFY(widget->font().bold());
    }
    for (const auto& [widget, own] : {std::pair<QWidget*, QFont>{stage.text, text}, {stage.bar, bar}}) {
      QCOMPARE(widget->font().family(), own.family());
      QCOMPARE(widget->font().pixelSize(), own.pixelSize());
      QVERIFY(!widget->font().bold());
    }
    QVERIFY(stage.othersButton->font().family() != "DejaVu Serif");
    // What cannot be a size leaves the size as it was.
    stage.settings.controlFontSize = 0;
    stage.looks.ApplyControlFont(stage.window);
    QCOMPARE(stage.label->font().pointSize(), 13);
  }

  void ControlFontIsChosenAndAskedAbout() {
    Stage stage;
    const FontChoice before{"DejaVu Serif", 13, true};
    stage.dialogs.ExpectFont(before, FontChoice{"DejaVu Sans", 10.5, false});
    stage.messages.Expect(FontQuestion("NO"), MessageAnswer::Yes);
    stage.looks.ChooseControlFont();
    QCOMPARE(stage.settings.controlFontName, QString("DejaVu Sans"));
    QCOMPARE(stage.settings.controlFontSize, 10);
    QCOMPARE(stage.settings.controlFontBold, 0);
    QCOMPARE(stage.settings.useControlFonts, 1);

    stage.dialogs.ExpectFont({"DejaVu Sans", 10, false}, before);
    stage.messages.Expect(FontQuestion("YES"), MessageAnswer::No);
    stage.looks.ChooseControlFont();
    QCOMPARE(stage.settings.controlFontBold, -1);
    QCOMPARE(stage.settings.useControlFonts, 0);

    // A dialog that could not be shown asks nothing and changes nothing.
    stage.dialogs.ExpectFont(before, std::nullopt);
    const Settings kept = stage.settings;
    stage.looks.ChooseControlFont();
    QVERIFY(stage.settings == kept);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::FontsAndColoursTest)
#include "fonts_and_colours_test.moc"

#include "platform/qt/menu_style.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTest>

#include "platform/menu_colours.h"
#include "platform/qt/program_style.h"
#include "platform/readable_colour.h"

namespace snipdeck {

class MenuStyleTest : public QObject {
  Q_OBJECT

 private:
  struct Stage {
    explicit Stage(const MenuScheme& scheme) : style(new MenuStyle(scheme, &window)), bar(new QMenuBar(&window)) {
      file = bar->addMenu(QStringLiteral("&File"));
      first = file->addAction(QStringLiteral("&Load"));
      first->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
      separator = file->addSeparator();
      off = file->addAction(QStringLiteral("Greyed out"));
      off->setEnabled(false);
      style->ApplyTo(*bar);
      bar->resize(300, bar->sizeHint().height());
      file->ensurePolished();
      file->resize(file->sizeHint());
    }
    QImage Bar() { return bar->grab().toImage(); }
    QImage Drop() { return file->grab().toImage(); }

    QWidget window;
    MenuStyle* style;
    QMenuBar* bar;
    QMenu* file;
    QAction* first;
    QAction* separator;
    QAction* off;
  };

  static int Count(const QImage& image, const QRect& part, QRgb colour) {
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x) count += image.pixel(x, y) == colour;
    return count;
  }

  /// Pixels that a weak eye can tell from the ground.
  static int Outstanding(const QImage& image, const QColor& ground) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        count += (Lightness(image.pixelColor(x, y)) + 0.05) / (Lightness(ground) + 0.05) >= 3;
    return count;
  }

  /// The ends of a gradient lie between two pixels.
  static bool IsNear(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) <= 2 && std::abs(qGreen(one) - qGreen(other)) <= 2 &&
           std::abs(qBlue(one) - qBlue(other)) <= 2;
  }

 private slots:
  void ColoursAreThoseOfTheScheme_data() {
    QTest::addColumn<bool>("blue");
    QTest::newRow("grey") << false;
    QTest::newRow("blue") << true;
  }
  void ColoursAreThoseOfTheScheme() {
    QFETCH(bool, blue);
    const MenuScheme& scheme = blue ? kBlueMenus : kGreyMenus;
    Stage stage(scheme);
    QCOMPARE(stage.Bar().pixel(280, 12), scheme.menuBarBackground);
    const QImage drop = stage.Drop();
    const QRect item = stage.file->actionGeometry(stage.first);
    QCOMPARE(drop.pixel(0, 0), scheme.border);
    QCOMPARE(drop.pixel(item.right() - 4, item.center().y()), scheme.background);
    QVERIFY(IsNear(drop.pixel(item.left(), item.top()), scheme.sideStripGradient1));
    QVERIFY(IsNear(drop.pixel(item.left() + 25, item.top()), scheme.sideStripGradient2));
    const QRect line = stage.file->actionGeometry(stage.separator);
    QCOMPARE(drop.pixel(line.right(), line.center().y()), scheme.separator);
    QVERIFY(Count(drop, item, qRgb(0, 0, 0)) > 10);
    const QRect off = stage.file->actionGeometry(stage.off);
    QCOMPARE(Count(drop, off, qRgb(0, 0, 0)), 0);
    QVERIFY(Count(drop, off, scheme.disabledIconTint) > 0);
  }

  void SelectionAndChecks() {
    Stage stage(kGreyMenus);
    stage.first->setCheckable(true);
    stage.first->setChecked(true);
    const QRect item = stage.file->actionGeometry(stage.first);
    QVERIFY(Count(stage.Drop(), item, kGreyMenus.checkFill) > 50);
    stage.file->setActiveAction(stage.first);
    const QImage selected = stage.Drop();
    QCOMPARE(selected.pixel(item.topLeft()), kGreyMenus.selectedMenuBorder);
    QCOMPARE(selected.pixel(item.right() - 4, item.center().y()), kGreyMenus.selectedMenuFill);
    QVERIFY(Count(selected, item, kGreyMenus.selectedCheckFill) > 50);
    QCOMPARE(Count(selected, item, kGreyMenus.checkFill), 0);
  }

  void FontAndDesktopColoursDoNotMatter() {
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    Stage stage(kGreyMenus);
    const QImage drop = stage.Drop();
    QApplication::setPalette(QPalette());
    QCOMPARE(Count(drop, drop.rect(), qRgb(255, 255, 255)), 0);
    QCOMPARE(stage.file->font().pointSizeF(), 11.25);
    QCOMPARE(stage.file->font().families().first(), QStringLiteral("Calibri"));
  }

  void TextAndKeyDoNotTouch() {
    Stage stage(kGreyMenus);
    const QFontMetrics metrics(stage.file->font());
    const int words =
        metrics.horizontalAdvance(QStringLiteral("Load")) + metrics.horizontalAdvance(QStringLiteral("Ctrl+L"));
    QVERIFY(stage.file->actionGeometry(stage.first).width() >= words + 26 + 6 + 24 + 18);
  }

  void EmptyFieldsStandOutOnADarkGround() {
    const QColor ground(42, 46, 50);
    ProgramStyle style;
    QCheckBox check;
    QRadioButton radio;
    QLineEdit line;
    for (QWidget* field :
         {static_cast<QWidget*>(&check), static_cast<QWidget*>(&radio), static_cast<QWidget*>(&line)}) {
      field->setStyle(&style);
      field->setPalette(QPalette(QColor(49, 54, 59), ground));
      field->resize(field->sizeHint());
      QVERIFY2(Outstanding(field->grab().toImage(), ground) > 20, field->metaObject()->className());
    }
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::MenuStyleTest)
#include "menu_style_test.moc"

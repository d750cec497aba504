#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include "platform/qt/rich_text_control.h"
#include "richtext/list_labels.h"

namespace snipdeck {
namespace {

const QRgb kMagenta = qRgb(255, 0, 255);

QPalette DarkTheme() {
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::AlternateBase})
    palette.setColor(role, QColor(30, 30, 30));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, QColor(240, 240, 240));
  return palette;
}

QImage ViewOf(RichTextControl& control) {
  control.resize(300, 120);
  return control.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int CountOf(const QImage& image, const std::function<bool(QRgb)>& wanted) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += wanted(image.pixel(x, y)) ? 1 : 0;
  return count;
}

int MagentaIn(const QImage& image) {
  return CountOf(image, [](QRgb pixel) { return pixel == kMagenta; });
}

QImage MagentaSquare() {
  QImage image(10, 10, QImage::Format_RGB32);
  image.fill(kMagenta);
  return image;
}

void InsertPicture(RichTextControl& control, const QString& name) {
  QTextImageFormat format;
  format.setName(name);
  control.textCursor().insertImage(format);
}

}  // namespace

class RichTextAppearanceTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { QApplication::setPalette(QPalette()); }
  void cleanup() { QApplication::setPalette(QPalette()); }

  void TextIsDarkOnTheGivenBackgroundInAnyTheme_data() {
    QTest::addColumn<bool>("themeComesLater");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("dark from the start") << false << true;
    QTest::newRow("theme turns dark") << true << true;
    QTest::newRow("disabled") << false << false;
  }

  void TextIsDarkOnTheGivenBackgroundInAnyTheme() {
    QFETCH(const bool, themeComesLater);
    QFETCH(const bool, enabled);
    if (!themeComesLater) QApplication::setPalette(DarkTheme());
    QWidget window;
    RichTextControl control(&window);
    control.SetBackColor(OleFromRgb(255, 255, 247));
    control.SetText(QString("HHH\n").repeated(4));
    control.setEnabled(enabled);
    window.show();
    if (themeComesLater) QApplication::setPalette(DarkTheme());
    QCoreApplication::processEvents();
    const QImage view = ViewOf(control);
    const QRgb background = qRgb(255, 255, 247);
    QCOMPARE(view.pixel(view.width() - 2, view.height() - 2), background);
    QVERIFY(CountOf(view, [](QRgb pixel) { return qGray(pixel) < 60; }) > 40);
    const int plain = CountOf(view, [&](QRgb pixel) { return pixel == background; });
    QVERIFY(plain > view.width() * view.height() * 3 / 4);
  }

  void ZoomingChangesTheViewAlone() {
    RichTextControl control;
    ViewOf(control);
    control.show();
    control.SetSelRichText(RichText::FromHtml("<p>one <span style='font-size:20pt'>two</span></p>"));
    const QString stored = control.toHtml();
    const int height = control.cursorRect().height();
    control.SetZoomValue(200);
    QVERIFY(qAbs(control.cursorRect().height() - 2 * height) <= 2);
    QCOMPARE(control.toHtml(), stored);
    control.SetZoomValue(100);
    QCOMPARE(control.cursorRect().height(), height);
    control.SetZoomValue(1000);
    QCOMPARE(control.ZoomValue(), 500);
    control.SetZoomValue(-3);
    QCOMPARE(control.ZoomValue(), 10);
  }

  void PicturesComeFromTheTextAlone() {
    QTemporaryDir folder;
    const QString path = folder.filePath("square.png");
    QVERIFY(MagentaSquare().save(path));
    for (const QString& name : {path, QUrl::fromLocalFile(path).toString(), "file://" + path}) {
      RichTextControl control;
      InsertPicture(control, name);
      QCOMPARE(MagentaIn(ViewOf(control)), 0);
    }

    QFile file(path);
    QVERIFY(file.open(QFile::ReadOnly));
    RichTextControl control;
    InsertPicture(control, "data:image/png;base64," + QString::fromLatin1(file.readAll().toBase64()));
    QCOMPARE(MagentaIn(ViewOf(control)), 100);
    control.document()->addResource(QTextDocument::ImageResource, QUrl("inside"), MagentaSquare());
    InsertPicture(control, "inside");
    QCOMPARE(MagentaIn(ViewOf(control)), 200);
    InsertPicture(control, "data:image/png;base64,broken");
    QCOMPARE(MagentaIn(ViewOf(control)), 200);
  }

  void AListShowsTheNumberThatItBeginsWith() {
    const auto viewOf = [](const QByteArray& start, const QByteArray& items) {
      RichTextControl control;
      control.SetSelRtf("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat" + start +
                        "{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}\\li720}\\listid1}}"
                        "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\pard\\ls1\\li720\\fi-360 " + items + "}");
      control.SetSelStart(0);
      QImage view = ViewOf(control);
      const int line = control.cursorRect().height();
      const int last = static_cast<int>(items.count("\\par"));
      return view.copy(0, control.cursorRect().top() + last * line, view.width(), line);
    };
    QCOMPARE(viewOf("3", "x"), viewOf("1", "\\par\\par x"));
    QVERIFY(viewOf("3", "x") != viewOf("1", "x"));
  }

  void ANewItemDoesNotKeepTheLabelOfTheOneBefore() {
    RichTextControl control;
    control.SetSelRtf("{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}"
                      "{\\levelnumbers\\'01;}}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
                      "\\pard{\\listtext A-9)\\tab}\\ls1\\li720 x}");
    control.moveCursor(QTextCursor::End);
    QTest::keyClick(&control, Qt::Key_Return);
    QCOMPARE(ListLabel(control.document()->firstBlock()), "A-9)");
    QCOMPARE(ListLabel(control.document()->lastBlock()), "10.");
    control.undo();
    QCOMPARE(control.document()->blockCount(), 1);
  }

  void ParagraphBordersShowInTheirColour() {
    RichTextControl control;
    control.SetSelRtf("{\\rtf1{\\colortbl;\\red255\\green0\\blue255;}\\pard\\li300\\ri300\\sb300\\box\\brdrs\\brdrw30\\brdrcf1 x\\par y}");
    QVERIFY(MagentaIn(ViewOf(control)) > 400);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::RichTextAppearanceTest)
#include "rich_text_appearance_test.moc"

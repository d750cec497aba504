#include "platform/qt/page_view/page_view.h"

#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "platform/print_dialog.h"
#include "platform/qt/page_view/page_breaks.h"
#include "platform/qt/printing/printer_job.h"
#include "platform/qt/rich_text_control.h"
#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

QString Words(int paragraphs, quint32 seed) {
  QRandomGenerator random(seed);
  QStringList text;
  for (int i = 0; i < paragraphs; ++i) {
    QStringList words;
    for (int length = random.bounded(1, 120); length > 0; --length)
      words << QString(random.bounded(1, 11), QChar(u'a' + random.bounded(26)));
    text << words.join(u' ');
  }
  return text.join(u'\n');
}

// The position that each page begins with, by the text's own way of finding what stands where.
QList<int> Breaks(const PagedText& text, const QTextDocument& document) {
  QList<int> breaks;
  const int pages = text.CountPages();
  for (int page = 0; page < pages; ++page) {
    const QPointF first = text.FromSheet(page, QPointF(0, 0));
    breaks << document.documentLayout()->hitTest(first, Qt::FuzzyHit);
  }
  return breaks;
}

struct PrintedWord {
  QPointF corner;  // points
  QString text;
};

// In reading order, which the tool guesses otherwise where blanks happen to stand below each other.
QList<PrintedWord> WordsIn(const QString& sheet) {
  static const QRegularExpression pattern("xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>([^<]*)</word>");
  QList<PrintedWord> words;
  for (auto it = pattern.globalMatch(sheet); it.hasNext();) {
    const QRegularExpressionMatch match = it.next();
    // The font draws some pairs of letters as one.
    words.append({{match.captured(1).toDouble(), match.captured(2).toDouble()},
                  match.captured(3).normalized(QString::NormalizationForm_KC)});
  }
  std::sort(words.begin(), words.end(), [](const PrintedWord& a, const PrintedWord& b) {
    const bool onOneLine = std::abs(a.corner.y() - b.corner.y()) < 3;
    return onOneLine ? a.corner.x() < b.corner.x() : a.corner.y() < b.corner.y();
  });
  return words;
}

// What `reader` (pdftotext) tells of each page of the text printed into a file.
QStringList PrintedSheets(RichTextControl& control, const QString& reader) {
  const QTemporaryDir folder;
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setOutputFileName(folder.filePath("out.pdf"));
  PrinterJob::SetSheets(*printer, control.Page());
  PrinterJob job(std::move(printer));
  control.SetPrintDevice(&job);
  const int pages = control.PageCount();
  for (int page = 1; page <= pages && job.StartPage(); ++page) control.PrintPage(page);
  const Outcome printed = job.Finish();
  control.SetPrintDevice(nullptr);
  QProcess reading;
  reading.start(reader, {"-bbox", folder.filePath("out.pdf"), "-"});
  if (!printed || !reading.waitForFinished(20000)) return {};
  return QString::fromUtf8(reading.readAllStandardOutput()).split("<page ").mid(1);
}

// A printer whose sheets are pictures of 96 dots an inch.
class PicturePrinter : public PrintJob {
 public:
  explicit PicturePrinter(QSize size) : m_sheet(size, QImage::Format_RGB32) { StartPage(); }
  bool StartPage() override {
    if (m_painter.isActive()) m_painter.end();
    m_sheet.fill(Qt::white);
    m_painter.begin(&m_sheet);
    m_painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    return true;
  }
  QPainter& Painter() override { return m_painter; }
  Outcome Finish() override {
    m_painter.end();
    return Done{};
  }
  const QImage& Sheet() const { return m_sheet; }

 private:
  QImage m_sheet;
  QPainter m_painter;
};

}  // namespace

class PageViewTest : public QObject {
  Q_OBJECT

  struct Fixture {
    QWidget window;
    RichTextControl control{&window};

    explicit Fixture(const QString& text) {
      window.resize(900, 1250);
      control.setGeometry(window.rect());
      control.SetText(text);
      window.show();
      window.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&window));
      control.setFocus();
    }
    PageView& Pages() const { return *control.findChild<PageView*>(); }
    QList<int> BreaksNow() const { return Breaks(Pages().Text(), *control.document()); }
    QScrollBar& Scroll() const { return *Pages().verticalScrollBar(); }
  };

 private slots:
  void PagesBreakAtTheSameWordsAtAnyZoomAndOnPaper() {
    Fixture f(Words(150, 1));
    f.control.SetViewMode(2);
    const QList<int> breaks = f.BreaksNow();
    QVERIFY(breaks.size() > 5);
    for (const int zoom : {50, 137, 300}) {
      f.control.SetZoomValue(zoom);
      QCOMPARE(f.BreaksNow(), breaks);
    }
    f.control.SetViewMode(0);
    QCOMPARE(f.control.PageCount(), breaks.size());
  }

  void TheDocumentsPageDecides() {
    Fixture f(Words(60, 2));
    f.control.SetViewMode(2);
    const int pages = f.control.PageCount();
    QCOMPARE(f.Pages().Text().SheetSize().toSize(), QSize(794, 1123));
    f.control.SetPage({8391, 5953, 720, 720, 720, 720});
    QTRY_COMPARE(f.Pages().Text().SheetSize().toSize(), QSize(559, 397));
    QVERIFY(f.control.PageCount() > 2 * pages);
    f.control.undo();
    QTRY_COMPARE(f.control.PageCount(), pages);
    f.control.SetPage({500, 500, 9000, 9000, 9000, 9000});
    QTRY_VERIFY(f.control.PageCount() > 1);
  }

  void SwitchingChangesNothingButTheView() {
    Fixture f(Words(200, 3));
    f.control.setGeometry(0, 0, 700, 500);
    QTRY_VERIFY(f.control.document()->pageSize().width() < 700);
    f.control.SetSelStart(6000);
    f.control.SetSelLength(5);
    f.control.ensureCursorVisible();
    f.control.SetSelText("typed");
    QTRY_VERIFY(f.control.verticalScrollBar()->value() > 0);
    QSignalSpy changes(&f.control, &QTextEdit::textChanged);
    const int scrolled = f.control.verticalScrollBar()->value();
    const int caret = f.control.textCursor().position();
    for (int i = 0; i < 2; ++i) {
      f.control.SetViewMode(2);
      QVERIFY(f.control.rect().toRectF().contains(f.Pages().CaretRect()));
      f.control.SetViewMode(0);
      QCOMPARE(f.control.verticalScrollBar()->value(), scrolled);
    }
    f.control.SetViewMode(2);
    f.Scroll().setValue(700);
    f.control.SetViewMode(0);
    QCoreApplication::processEvents();
    f.control.SetViewMode(2);
    QCOMPARE(f.Scroll().value(), 700);
    f.control.SetViewMode(0);
    QCOMPARE(f.control.textCursor().position(), caret);
    QCOMPARE(changes.size(), 0);
    f.control.undo();
    QVERIFY(!f.control.Text().contains("typed"));
  }

  void EditedPagesAreThoseOfAFreshLayout_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed) QTest::addRow("seed %u", seed) << seed;
  }

  void EditedPagesAreThoseOfAFreshLayout() {
    QFETCH(quint32, seed);
    Fixture f(Words(80, seed));
    f.control.SetViewMode(2);
    QRandomGenerator random(seed);
    for (int i = 0; i < 25; ++i) {
      const int length = static_cast<int>(f.control.Text().size());
      f.control.SetSelStart(random.bounded(length));
      f.control.SetSelLength(random.bounded(900));
      f.control.SetSelText(random.bounded(2) ? QString() : Words(random.bounded(1, 4), seed + static_cast<quint32>(i)));
      QTest::qWait(1);
    }
    const QList<int> edited = f.BreaksNow();
    f.control.SetViewMode(0);
    f.control.SetViewMode(2);
    QCOMPARE(edited, f.BreaksNow());
  }

  void LinesThatBelongTogetherStayOnAPage_data() {
    QTest::addColumn<int>("above");
    QTest::addColumn<int>("lines");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<QList<int>>("onPages");  // how many lines
    QTest::newRow("enough room") << 5 << 5 << false << QList<int>{5};
    QTest::newRow("divided") << 5 << 8 << false << QList<int>{5, 3};
    QTest::newRow("no first line by itself") << 9 << 6 << false << QList<int>{0, 6};
    QTest::newRow("no last line by itself") << 5 << 6 << false << QList<int>{4, 2};
    QTest::newRow("too short to be divided") << 8 << 3 << false << QList<int>{0, 3};
    QTest::newRow("kept together") << 5 << 8 << true << QList<int>{0, 8};
    QTest::newRow("too long to be kept together") << 5 << 12 << true << QList<int>{5, 7};
    QTest::newRow("several pages") << 9 << 21 << false << QList<int>{0, 10, 9, 2};
  }

  void LinesThatBelongTogetherStayOnAPage() {
    QFETCH(int, above);
    QFETCH(int, lines);
    QFETCH(bool, kept);
    const PageStrip strip{110, 5};
    const std::vector<LineRoom> rooms(static_cast<std::size_t>(lines), {10, 10, 0, 10});
    QList<int> onPages{0};
    for (const double top : StackLines(strip, rooms, 5 + above * 10, kept)) {
      while (onPages.size() <= strip.PageOf(top)) onPages << 0;
      ++onPages.last();
      QVERIFY(top >= strip.TopOf(strip.PageOf(top)) && top + 10 <= strip.BottomOf(strip.PageOf(top)));
    }
    QTEST(onPages, "onPages");
  }

  void ParagraphsGoOverToTheNextPageWithTheOneTheyAreKeptWith() {
    QStringList lines;
    for (int i = 0; i < 120; ++i) lines << QStringLiteral("line %1").arg(i);
    Fixture f(lines.join(u'\n'));
    f.control.SetViewMode(2);
    const auto pageOf = [&](int block) {
      const int position = f.control.document()->findBlockByNumber(block).position();
      return f.Pages().Text().PageOfDot(f.Pages().Text().CaretDots(position).top());
    };
    const auto keep = [&](int block) {
      QTextBlockFormat format;
      format.setProperty(kKeepWithNext, true);
      QTextCursor(f.control.document()->findBlockByNumber(block)).mergeBlockFormat(format);
    };
    int last = 0;
    while (pageOf(last + 1) == 0) ++last;
    const QList<int> before = f.BreaksNow();
    keep(last);
    QCOMPARE(pageOf(last - 1), 0);
    QCOMPARE(pageOf(last), 1);
    keep(last - 1);
    keep(last - 2);
    QCOMPARE(pageOf(last - 3), 0);
    QCOMPARE(pageOf(last - 2), 1);
    const QList<int> kept = f.BreaksNow();
    f.control.SetViewMode(0);
    QCOMPARE(f.control.PageCount(), kept.size());
    f.control.SetViewMode(2);
    QCOMPARE(f.BreaksNow(), kept);
    for (int i = 0; i < 3; ++i) f.control.undo();
    QCOMPARE(f.BreaksNow(), before);
    for (int block = 0; block < 119; ++block) keep(block);
    QCOMPARE(f.BreaksNow(), before);  // no page holds all of them
  }

  void PaperShowsWhatTheViewShows() {
    Fixture f(Words(60, 5));
    f.control.SetSelLength(40);
    f.control.SetBold(-1);
    f.control.SetSelStart(0);
    f.control.SetViewMode(2);
    f.Pages().setFocus();
    f.window.setFocus();
    const QSize size = f.Pages().Text().SheetSize().toSize();
    PicturePrinter printer(size);
    f.control.SetPrintDevice(&printer);
    for (const bool marks : {false, true}) {
      f.control.SetShowFormatting(false);
      const QImage view = f.Pages().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
      f.control.SetShowFormatting(marks);
      printer.StartPage();
      f.control.PrintPage(1);
      const QPoint corner((f.Pages().viewport()->width() - size.width()) / 2, 12);
      QCOMPARE(printer.Sheet().copy(10, 10, size.width() - 20, size.height() - 20),
               view.copy(QRect(corner + QPoint(10, 10), size - QSize(20, 20))));
    }
    printer.StartPage();
    const QImage blank = printer.Sheet().copy();
    f.control.PrintPage(0);
    f.control.PrintPage(f.control.PageCount() + 1);
    QCOMPARE(printer.Sheet(), blank);
  }

  // Word by word, by the words' places in a PDF file.
  void APrintedFileHoldsThePagesOfTheView() {
    const QString reader = QStandardPaths::findExecutable("pdftotext");
    if (reader.isEmpty()) QSKIP("pdftotext is not installed");
    Fixture f(Words(60, 8));
    f.control.SetPage({8391, 11906, 1000, 1200, 800, 1440});
    f.control.SetViewMode(2);
    const QStringList sheets = PrintedSheets(f.control, reader);
    const int pages = f.control.PageCount();
    QCOMPARE(sheets.size(), pages);
    const QString text = f.control.Text();
    int position = 0;
    for (int page = 0; page < pages; ++page) {
      for (const PrintedWord& word : WordsIn(sheets[page])) {
        while (text[position].isSpace()) ++position;
        QCOMPARE(text.mid(position, word.text.size()), word.text);
        const QRectF dots = f.Pages().Text().CaretDots(position);
        QCOMPARE(f.Pages().Text().PageOfDot(dots.top()), page);
        const QPointF away = f.Pages().Text().OnSheet(page, dots.topLeft()) * 0.75 - word.corner;
        QVERIFY2(std::abs(away.x()) < 0.5 && std::abs(away.y()) < 3, qPrintable(word.text));
        position += static_cast<int>(word.text.size());
      }
    }
    QVERIFY(text.mid(position).trimmed().isEmpty());
  }

  void PaperHasIndentsOfTheirSize() {
    const QString reader = QStandardPaths::findExecutable("pdftotext");
    if (reader.isEmpty()) QSKIP("pdftotext is not installed");
    Fixture f({});
    f.control.SetSelRtf("{\\rtf1\\li1440 left\\par\\li1440\\fi-720 hanging\\par}");
    for (const int mode : {2, 0}) {
      f.control.SetViewMode(mode);
      const QList<PrintedWord> words = WordsIn(PrintedSheets(f.control, reader).value(0));
      QCOMPARE(words.size(), 2);
      constexpr double kInch = 72;
      QVERIFY(std::abs(words[0].corner.x() - 2 * kInch) < 1);
      QVERIFY(std::abs(words[1].corner.x() - 1.5 * kInch) < 1);
    }
  }

  void TheMouseMeansWhatItPointsAt() {
    Fixture f(Words(150, 6));
    f.control.SetViewMode(2);
    for (const int zoom : {100, 60, 105}) {
      f.control.SetZoomValue(zoom);
      f.control.SetSelStart(0);
      f.control.SetSelStart(9100);
      f.control.SetSelStart(9000);
      const QPoint there = f.Pages().viewport()->mapFrom(&f.control, f.Pages().CaretRect().center().toPoint());
      f.control.SetSelStart(9100);
      const QPoint end = f.Pages().viewport()->mapFrom(&f.control, f.Pages().CaretRect().center().toPoint());
      QTest::mousePress(f.Pages().viewport(), Qt::LeftButton, {}, there);
      QCOMPARE(f.control.textCursor().position(), 9000);
      QTest::mouseMove(f.Pages().viewport(), end);
      QTest::mouseRelease(f.Pages().viewport(), Qt::LeftButton, {}, end);
      QCOMPARE(f.control.SelLength(), 100);
    }
  }

  void TheViewFollowsTheCaret() {
    Fixture f(Words(150, 7));
    f.control.SetViewMode(2);
    QTest::keyClick(&f.control, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(f.control.SelStart(), f.control.Text().size());
    QVERIFY(f.control.rect().toRectF().contains(f.Pages().CaretRect()));
    QTest::keyClick(&f.control, Qt::Key_Home, Qt::ControlModifier);
    QVERIFY(f.Scroll().value() < 120);
    const double top = f.Pages().CaretRect().top();
    int turns = 0;
    for (int last = -1; last != f.control.textCursor().position() && turns < 100; ++turns) {
      last = f.control.textCursor().position();
      QTest::keyClick(&f.control, Qt::Key_PageDown, Qt::ShiftModifier);
      QVERIFY(f.control.rect().toRectF().contains(f.Pages().CaretRect()));
    }
    QVERIFY2(turns > 5 && turns < 30, qPrintable(QString::number(turns)));
    QCOMPARE(f.control.SelStart(), 0);
    QVERIFY(top > 0);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::PageViewTest)
#include "page_view_test.moc"

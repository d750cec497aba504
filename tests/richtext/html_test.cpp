#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include "richtext/document_compare.h"
#include "richtext/html/html_writer.h"
#include "richtext/linear_time.h"
#include "richtext/rich_text.h"

using namespace snipdeck;

class HtmlTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void Payloads_data();
  void Payloads();
  void Text_data();
  void Text();
  void Formats_data();
  void Formats();
  void SizesGoByTheFont_data();
  void SizesGoByTheFont();
  void LooseTextIsNoItem();
  void NothingIsLoaded();
  void DeepAndWideIsCut();
  void LongPagesAreKeptWhole();
  void LongTablesAreKeptWhole();
  void TimeGrowsLinearly_data();
  void TimeGrowsLinearly();
  void WrittenAgainIsTheSame();
};

namespace {

QByteArray WithHeader(const QByteArray& before, const QByteArray& fragment, const QByteArray& after, int shift = 0) {
  const QByteArray form = "Version:0.9\r\nStartHTML:%1\r\nEndHTML:%2\r\nStartFragment:%3\r\nEndFragment:%4\r\n";
  const auto number = [](qsizetype value) { return QByteArray::number(value).rightJustified(10, '0'); };
  const qsizetype header = form.size() + 4 * (10 - 2);
  QByteArray result = form;
  const qsizetype begin = header + before.size() + shift;
  result.replace("%1", number(header)).replace("%2", number(header + before.size() + fragment.size() + after.size()));
  result.replace("%3", number(begin)).replace("%4", number(begin + fragment.size()));
  return result + before + fragment + after;
}

}  // namespace

/// What sizes of text are told by.
void HtmlTest::initTestCase() {
  QFont font = QGuiApplication::font();
  font.setPointSize(12);
  QGuiApplication::setFont(font);
}

void HtmlTest::Payloads_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QString>("expected");
  const QByteArray marks = "<!--StartFragment-->", endMark = "<!--EndFragment-->";
  QTest::newRow("offsets alone") << WithHeader("<html><body>ou\xC3\xA9t<p>", "caf\xC3\xA9", "</p>out</body>") << "café";
  QTest::newRow("wrong offsets, marks") << WithHeader("<body>out" + marks, "in", endMark + "out", 7) << "in";
  QTest::newRow("offsets beyond the end") << WithHeader("<body>", "all", "</body>", 100000) << "all";
  QTest::newRow("marks without a header") << "<body>out" + marks + "in" + endMark + "out"
                                          << "in";
  QTest::newRow("inside a table") << "<table>" + marks + "<tr><td>a<td>b</tr>" + endMark + "</table>"
                                  << "a\tb\n";
  QTest::newRow("cells without a table") << QByteArray("<td>a</td><td>b</td>") << "a\tb\n";
  QTest::newRow("windows-1252, not declared") << QByteArray("<p>caf\xE9 \x80</p>") << "café €";
  QTest::newRow("declared") << QByteArray("<meta charset='windows-1251'><p>\xC4\xE0</p>") << "Да";
  QTest::newRow("declared wrongly") << QByteArray("<meta charset='windows-1252'><p>caf\xC3\xA9</p>") << "café";
  QTest::newRow("UTF-16") << QByteArray("\xFF\xFE<\0p\0>\0\xE9\0", 10) << "é";
  QTest::newRow("nothing") << QByteArray() << "";
}

void HtmlTest::Payloads() {
  QFETCH(QByteArray, bytes);
  QFETCH(QString, expected);
  QCOMPARE(RichText::FromHtml(bytes).PlainText(), expected);
}

void HtmlTest::Text_data() {
  QTest::addColumn<QByteArray>("html");
  QTest::addColumn<QString>("expected");
  QTest::newRow("what is not text")
      << QByteArray("<head><title>t</title><script>s</script></head><xml>x</xml><p>a<!-- c --></p>") << "a";
  QTest::newRow("office markup")
      << QByteArray(
             "<p class=MsoNormal>a<o:p></o:p><![if !supportLists]>b<![endif]><!--[if gte mso 9]>c<![endif]--></p>")
      << "ab";
  QTest::newRow("paragraphs without ends") << QByteArray("<p>a<p>b<ul><li>c<li>d</ul>") << "a\nb\nc\nd";
  QTest::newRow("a break at the end") << QByteArray("<p>a<br></p><p>b<br>c</p>") << "a\nb\nc";
  QTest::newRow("an empty paragraph") << QByteArray("<p>a</p><p><br></p><p>b</p>") << "a\n\nb";
  QTest::newRow("a break between blocks") << QByteArray("<div><p>a</p><br></div>b<br><h1>c</h1>") << "a\n\nb\nc";
  QTest::newRow("blanks between blocks") << QByteArray(
                                                "<h1>a</h1>\n <p>\n <b>b</b> <i>c</i>\n </p>\n<table>\n <tr>\n "
                                                "<td> d </td> </tr></table>\n<pre>  <b>e</b>  </pre>")
                                         << "a\nb c\nd\n  e  ";
  QTest::newRow("preformatted lines") << QByteArray(
                                             "<pre>\n\na\n b\n</pre><p style='white-space:pre-line'>c  d \n e</p>"
                                             "<style>.x{white-space:pre-wrap}</style><div class=x>f  g\nh</div>")
                                      << "\na\n b\nc d\ne\nf  g\nh";
  QTest::newRow("blanks that are characters")
      << QByteArray("<p> a&emsp;&emsp;b&#x3000; &#8199;c\xE3\x80\x80\xE3\x80\x80 d&#8239;</p>")
      << QStringLiteral("a\u2003\u2003b\u3000 \u2007c\u3000\u3000 d\u202F");
  QTest::newRow("entities without semicolons")
      << QByteArray("<p>caf&eacute &copy 2020 a&ltb&amp; &#233x &nbspz &notanent; &am; AT&T &#150;</p>")
      << QStringLiteral("caf\u00E9 \u00A9 2020 a<b& \u00E9x \u00A0z \u00ACanent; &am; AT&T \u2013");
  QTest::newRow("entities by long names") << QByteArray("<p>&check;a&ZeroWidthSpace;b&NotEqualTilde;&CheckMark</p>")
                                          << QStringLiteral("\u2713a\u200Bb\u2242\u0338&CheckMark");
  QTest::newRow("loose text behind blocks")
      << QByteArray("<div>a</div><b>b</b>c<p>d</p>\n<font color=red>e</font><ul><li>f</ul><i><h1>g</h1></i><a>h</a>")
      << "a\nbc\nd\ne\nf\ng\nh";
  QTest::newRow("a loose break") << QByteArray("<p>a</p><br><p>b</p><br>c") << "a\n\nb\n\nc";
  QTest::newRow("blocks by their names")
      << QByteArray("a<address>b</address>c<legend>d</legend>e<summary>f</summary>g<dialog>h</dialog>i")
      << "a\nb\nc\nd\ne\nf\ng\nh\ni";
  QTest::newRow("text between cells")
      << QByteArray("a<table>stray<tr>stray2<td>b<table><b>c</b><td>d</table><td>e</tr></table>")
      << "a\nstray\nstray2\nb\nc\nd\n\te\n";
  QTest::newRow("rows without a table") << QByteArray("<tbody>a<tr><td>b</table><tfoot>c<div>d<div>e<caption>f")
                                        << "a\nb\nc\nd\ne\nf";
  QTest::newRow("a form around cells") << QByteArray("<table><form><tr><td>a<td>b</form></table>") << "a\tb\n";
  QTest::newRow("what is hidden") << QByteArray(
                                         "<style>.h{display:none}</style><p>a<i class=h>x</i><i hidden>x<b>x</b></i>"
                                         "<u style='visibility:hidden'>x</u>b<table hidden><td>x</table><p>c")
                                  << "ab\nc";
  QTest::newRow("display of blocks") << QByteArray(
                                            "a<span style='display:block'>b</span><a style='display:block'>c</a>d"
                                            "<img src=x alt=e style='display:block'>f")
                                     << "a\nb\nc\nd\ne\nf";
  QTest::newRow("quotes") << QByteArray("<q>a <q>b</q></q>") << "“a ‘b’”";
  QTest::newRow("a break for pasting") << QByteArray("<b>a</b><br class=Apple-interchange-newline>") << "a";
  QTest::newRow("lonely brackets") << QByteArray("<p>1 < 2 &amp; 3 > 2 <3</p>") << "1 < 2 & 3 > 2 <3";
  QTest::newRow("forbidden numbers") << QByteArray("<p>a&#0;&#x1b;&#xFDD0;b&#65;&#x10FFFF;</p>")
                                     << QString("abA") + QString::fromUcs4(U"\U0010FFFF");
  QTest::newRow("a picture elsewhere") << QByteArray("<p>a<img src='http://example.org/x.png' alt='word'>b</p>")
                                       << "awordb";
  QTest::newRow("a picture named by its address")
      << QByteArray("<p>a<img src='cid:1' alt='https://example.org/x.png'>b</p>") << "ab";
  QTest::newRow("cut in a tag") << QByteArray("<p>a</p><p title='") << "a";
}

void HtmlTest::Text() {
  QFETCH(QByteArray, html);
  QFETCH(QString, expected);
  QCOMPARE(RichText::FromHtml(html).PlainText(), expected);
}

void HtmlTest::Formats_data() {
  QTest::addColumn<QByteArray>("html");
  QTest::addColumn<QString>("fact");
  QTest::newRow("class") << QByteArray(
                                "<style><!-- p.x {mso-style:a; font-size:10.5pt; @bad} --></style><p class=x>a</p>")
                         << "halfpoints=21";
  QTest::newRow("rules of different weight")
      << QByteArray(
             "<style>@import 'x'; #i{color:#010203} p b.x{color:#040506;font-size:2em} b{color:#070809}</style>"
             "<div style='font-size:20pt'><p><b class='y x'>a</b></p></div>")
      << "halfpoints=80 bold=1 colour=#040506";
  QTest::newRow("rules for the page") << QByteArray("<style>html{color:#010203} body{font:10pt Arial}</style>a")
                                      << "font=Arial halfpoints=20 colour=#010203";
  QTest::newRow("rules for others") << QByteArray("<style>div>b, i b{color:#010203}</style><p><b>a</b></p>")
                                    << "halfpoints=24 bold=1\n";
  QTest::newRow("alpha behind the colour") << QByteArray("<span style='color:#ff0000ff'>a</span>") << "colour=#ff0000";
  QTest::newRow("partly transparent") << QByteArray("<span style='color:rgb(0 0 0 / 50%)'>a</span>")
                                      << "colour=#808080";
  QTest::newRow("hue") << QByteArray("<span style='color:hsl(120, 100%, 50%)'>a</span>") << "colour=#00ff00";
  QTest::newRow("pixels") << QByteArray("<span style='font-size:16px'>a</span>") << "halfpoints=24";
  QTest::newRow("relative") << QByteArray("<div style='font-size:20pt'><span style='font-size:150%'>a</span></div>")
                            << "halfpoints=60";
  QTest::newRow("all of the font") << QByteArray("<p style='font:italic bold 20px/1.5 Arial'>a</p>")
                                   << "font=Arial halfpoints=30 bold=1 italic=1";
  QTest::newRow("heading") << QByteArray("<h1>a</h1>") << "halfpoints=48 bold=1";
  QTest::newRow("font element") << QByteArray("<font face=Arial size=5 color=#ff0000>a</font>")
                                << "font=Arial halfpoints=36";
  QTest::newRow("background") << QByteArray("<span style='background:yellow none'>a</span>") << "background=#ffff00";
  QTest::newRow("link") << QByteArray("<a href='https://example.org/?a=1&amp;b=2'>a</a>")
                        << "link=https://example.org/?a=1&b=2";
  QTest::newRow("link with names in it") << QByteArray("<a href='https://example.org/?a&copy=1&lt2&b&quot'>a</a>")
                                         << "link=https://example.org/?a&copy=1&lt2&b\"";
  QTest::newRow("link from the page's place")
      << QByteArray("Version:0.9\nSourceURL:https://example.org/a/b.html\n<base href=c/><a href='d?e'>a</a>")
      << "link=https://example.org/a/c/d?e";
  QTest::newRow("points of indent") << QByteArray("<p style='margin-left:36.0pt'>a</p>") << "left=720";
  QTest::newRow("list start") << QByteArray("<ol type=i start=3><li>a<li>b</ol>") << "number=iv.";
  QTest::newRow("item number") << QByteArray("<ol><li>a<li value=7>b<li>c</ol>") << "number=8.";
}

void HtmlTest::Formats() {
  QFETCH(QByteArray, html);
  QFETCH(QString, fact);
  const QString description = test::Describe(RichText::FromHtml(html).Document()).join(u'\n') + u'\n';
  QVERIFY2(description.contains(fact), qPrintable(description));
}

void HtmlTest::SizesGoByTheFont_data() {
  QTest::addColumn<QByteArray>("html");
  QTest::addColumn<double>("points");
  const double none = 0;
  QTest::newRow("no size") << QByteArray("<p>a") << none;
  QTest::newRow("no other size") << QByteArray("<p style='font-size:1em'><font size=3><b style='font-size:medium'>a")
                                 << none;
  QTest::newRow("small") << QByteArray("<small>a") << 8.33333;
  QTest::newRow("big in a size") << QByteArray("<p style='font-size:20pt'><big>a") << 24.0;
  QTest::newRow("back to medium") << QByteArray("<p style='font-size:20pt'><font size=3>a") << 10.0;
  QTest::newRow("heading") << QByteArray("<h1>a") << 20.0;
  QTest::newRow("heading of no other size") << QByteArray("<h4>a") << none;
  QTest::newRow("step") << QByteArray("<font size=+1>a") << 11.25;
  QTest::newRow("points") << QByteArray("<span style='font-size:10pt'>a") << 10.0;
}

void HtmlTest::SizesGoByTheFont() {
  QFETCH(QByteArray, html);
  const QFont before = QGuiApplication::font();
  QFont font = before;
  font.setPointSize(10);
  QGuiApplication::setFont(font);
  const RichText text = RichText::FromHtml(html);
  QGuiApplication::setFont(before);
  QTEST(text.Document().begin().begin().fragment().charFormat().fontPointSize(), "points");
}

void HtmlTest::LooseTextIsNoItem() {
  const RichText text = RichText::FromHtml("<ul><li>a<ul><li>b</ul>c</ul><b>d</b>");
  QString items;
  for (QTextBlock block = text.Document().begin(); block.isValid(); block = block.next()) {
    items += block.textList() ? block.text() : QString(u'-');
  }
  QCOMPARE(items, QStringLiteral("ab--"));
}

void HtmlTest::NothingIsLoaded() {
  const QString path = QFINDTESTDATA("html_test.cpp");
  QVERIFY(!path.isEmpty());
  const QByteArray url = "file://" + path.toUtf8();
  const RichText text =
      RichText::FromHtml("<link rel=stylesheet href='" + url + "'><style>@import url(" + url + ");</style><img src='" +
                         url + "'><a href='javascript:alert(1)'>a</a><a href='java&#115;cript:x'>b</a><base href='javascript:y//'><a href='z'>c</a>");
  const QString description = test::Describe(text.Document()).join(u'\n');
  QVERIFY2(!description.contains("picture") && !description.contains("link="), qPrintable(description));
}

void HtmlTest::DeepAndWideIsCut() {
  const QByteArray deep = QByteArray("<div><table><tr><td>").repeated(20000) + "deep";
  QVERIFY(RichText::FromHtml(deep).PlainText().contains("deep"));
  const RichText wide = RichText::FromHtml("<table><tr><td colspan=100000000 rowspan=99999999>wide</td></tr></table>");
  QVERIFY(wide.PlainText().contains("wide"));
  QVERIFY(RichText::FromHtml(QByteArray("<b>").repeated(50000) + "bold").PlainText() == "bold");
}

void HtmlTest::LongPagesAreKeptWhole() {
  constexpr int kParagraphs = 110'000;
  const QByteArray page = "<body>" + QByteArray("<p>of a long page</p>").repeated(kParagraphs) + "</body>";
  QCOMPARE(RichText::FromHtml(page).PlainText().count('\n'), kParagraphs - 1);
}

void HtmlTest::LongTablesAreKeptWhole() {
  constexpr int kRows = 70'000;
  const QString text = RichText::FromHtml("<table>" + QByteArray("<tr><td>a<td>b").repeated(kRows)).PlainText();
  QCOMPARE(text.count(u'b'), kRows);
  QVERIFY(text.endsWith(QLatin1String("\na\tb\na\tb")));
}

void HtmlTest::TimeGrowsLinearly_data() {
  QTest::addColumn<QByteArray>("unit");
  QTest::newRow("open elements") << QByteArray("<b>");
  QTest::newRow("fonts") << QByteArray("<font face=A#>x</font>");
  QTest::newRow("styles") << QByteArray("<p style='font-family:A#'>x");
  QTest::newRow("named places") << QByteArray("<a name=a#>x</a>");
  QTest::newRow("rules for all") << QByteArray(
      "<style>*{color:red} .a#{color:red} p .b{color:red}</style><p class=b>x");
  QTest::newRow("tables of other widths") << QByteArray("<table><tr><td width=#>x<td width=9>y</table>");
}

void HtmlTest::TimeGrowsLinearly() {
  QFETCH(QByteArray, unit);
  const QString growth = test::GrowsTooFast(unit, [](const QByteArray& html) { RichText::FromHtml(html).Length(); });
  QVERIFY2(growth.isEmpty(), qPrintable(growth));
}

void HtmlTest::WrittenAgainIsTheSame() {
  const QByteArray html =
      "<h2>Head</h2><p>a <b>b</b>&nbsp; <i>i</i> <span "
      "style='color:#123456;background-color:#ffff00;font-size:9pt'>c</span></p>"
      "<table border=1><tr><td colspan=2 bgcolor=#00ff00>x</td></tr><tr><td>y</td><td>z</td></tr></table><p>after</p>"
      "<ol start=5><li>one</li><li>two<ul><li>deep</li></ul></li></ol><p>end</p>";
  const RichText once = RichText::FromHtml(html);
  const RichText twice = RichText::FromHtml(WriteHtml(once.Document()));
  QCOMPARE(twice.PlainText(), once.PlainText());
  QCOMPARE(WriteHtml(RichText::FromHtml(WriteHtml(twice.Document())).Document()), WriteHtml(twice.Document()));
}

QTEST_MAIN(HtmlTest)
#include "html_test.moc"

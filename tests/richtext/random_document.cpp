#include "richtext/random_document.h"

#include <QImage>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include "richtext/format_properties.h"
#include "richtext/list_labels.h"

namespace snipdeck::test {
namespace {

class Writer {
 public:
  Writer(QTextDocument& document, quint32 seed) : m_cursor(&document), m_random(seed) {}

  void Fill(int size) {
    m_cursor.beginEditBlock();
    Contents(m_cursor, size, 0);
    m_cursor.endEditBlock();
  }

 private:
  int Below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
  bool OneIn(int count) { return Below(count) == 0; }
  int Twips(int limit) { return Below(limit / 15) * 15; }
  double Pixels(int limitTwips) { return Twips(limitTwips) / 15.0; }
  QColor Colour() { return QColor(Below(256), Below(256), Below(256)); }
  /// Not dark: there, text of no colour is read as white.
  QColor Ground() { return QColor(128 + Below(128), 128 + Below(128), 128 + Below(128)); }

  void Contents(QTextCursor& cursor, int size, int depth) {
    for (int i = 0; i < size; ++i) {
      if (i > 0) cursor.insertBlock(QTextBlockFormat(), BaseFormat());
      cursor.setBlockFormat(ParagraphFormat());
      const bool startsCell = depth > 0 && i == 0;  // where the mark carries the format of the cell
      if (!startsCell) cursor.setBlockCharFormat(BaseFormat());
      if (OneIn(6)) StartList(cursor);
      Runs(cursor);
      if (depth < 2 && OneIn(8)) Table(cursor, depth);
    }
  }

  // The label of a list hangs in front of its text, which leaves no first-line indent to choose.
  void StartList(QTextCursor& cursor) {
    QTextBlockFormat format = cursor.blockFormat();
    format.setTextIndent(0);
    cursor.setBlockFormat(format);
    cursor.createList(ListFormat());
  }

  void Table(QTextCursor& cursor, int depth) {
    QTextTableFormat format;
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(1);
    format.setCellPadding(Pixels(200));
    const int rows = 1 + Below(4), columns = 1 + Below(4);
    QList<QTextLength> widths;
    for (int i = 0; i < columns; ++i) widths.append(QTextLength(QTextLength::FixedLength, Pixels(2000) + 20));
    format.setColumnWidthConstraints(widths);
    QTextTable* const table = cursor.insertTable(rows, columns, format);
    // One merge keeps a row and a column in which every cell stands alone, so that the grid can be told again.
    if (rows > 1 && columns > 1) table->mergeCells(0, 0, 1 + Below(rows - 1), 1 + Below(columns - 1));
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) Cell(table->cellAt(row, column), row, column, depth);
    }
    cursor.setPosition(table->lastPosition() + 1);
    cursor.setBlockFormat(QTextBlockFormat());
    cursor.setBlockCharFormat(BaseFormat());
  }

  void Cell(QTextTableCell cell, int row, int column, int depth) {
    if (cell.row() != row || cell.column() != column) return;
    QTextCursor inside = cell.firstCursorPosition();
    Contents(inside, 1 + Below(2), depth + 1);
    if (OneIn(2)) return;
    QTextCharFormat format = cell.format();  // which also is that of the first paragraph's mark
    format.setBackground(Ground());
    cell.setFormat(format);
  }

  void Runs(QTextCursor& cursor) {
    for (int i = Below(6); i > 0; --i) {
      if (OneIn(12)) {
        Picture(cursor);
      } else {
        cursor.insertText(Text(), CharacterFormat());
      }
    }
  }

  QString Text() {
    static const QStringList kPieces = {"plain words ",
                                        "{braces}",
                                        "back\\slash",
                                        "tab\t",
                                        "\u2028",
                                        "caf\u00E9 ",
                                        "\u201Cquoted\u201D ",
                                        "\u20AC",
                                        "\u00A0",
                                        "\u00AD",
                                        "\u2011",
                                        "\u0414\u0430 ",
                                        "\u4E2D\u6587",
                                        QString::fromUcs4(U"\U0001F600"),
                                        "\u05E9\u05DC\u05D5\u05DD",
                                        "1234",
                                        "\\u123 ",
                                        "\\'e9",
                                        "-5",
                                        " ",
                                        "  two  blanks  ",
                                        ";",
                                        "\u2022",
                                        "\uF0B7"};
    QString text;
    for (int i = 1 + Below(5); i > 0; --i) text += kPieces[Below(static_cast<int>(kPieces.size()))];
    return text;
  }

  void Picture(QTextCursor& cursor) {
    QImage image(1 + Below(8), 1 + Below(8), QImage::Format_ARGB32);
    image.fill(Colour());
    QTextImageFormat format;
    format.merge(BaseFormat());
    format.setName(QStringLiteral("random-%1").arg(m_pictures++));
    format.setWidth(1 + Below(100));
    format.setHeight(1 + Below(100));
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl(format.name()), image);
    cursor.insertImage(format);
  }

  QTextCharFormat BaseFormat() {
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("Arial")});
    format.setFontPointSize(12);
    return format;
  }

  QTextCharFormat CharacterFormat() {
    static const QStringList kFonts = {"Arial", "Courier New", "Times New Roman", "Name with \u00E9"};
    QTextCharFormat format = BaseFormat();
    if (OneIn(2)) return format;
    format.setFontFamilies({kFonts[Below(4)]});
    format.setFontPointSize((8 + Below(100)) / 2.0);
    if (OneIn(3)) format.setFontWeight(QFont::Bold);
    if (OneIn(3)) format.setFontItalic(true);
    if (OneIn(4)) Underline(format);
    if (OneIn(6)) format.setFontStrikeOut(true);
    if (format.fontStrikeOut() && OneIn(2)) format.setProperty(kDoubleStrike, true);
    if (OneIn(8))
      format.setVerticalAlignment(OneIn(2) ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript);
    if (OneIn(8)) format.setFontCapitalization(OneIn(2) ? QFont::AllUppercase : QFont::SmallCaps);
    if (OneIn(4)) format.setForeground(Colour());
    if (OneIn(5)) format.setBackground(Ground());
    if (format.hasProperty(QTextFormat::BackgroundBrush) && OneIn(2)) format.setProperty(kHighlight, true);
    if (OneIn(6)) Link(format);
    Effects(format);
    return format;
  }

  void Underline(QTextCharFormat& format) {
    format.setUnderlineStyle(static_cast<QTextCharFormat::UnderlineStyle>(1 + Below(6)));
    if (format.underlineStyle() == QTextCharFormat::SingleUnderline && OneIn(2)) {
      format.setProperty(kUnderlineKind, static_cast<int>(OneIn(2) ? UnderlineKind::Double : UnderlineKind::WordsOnly));
    }
    if (OneIn(3)) format.setUnderlineColor(Colour());
  }

  void Link(QTextCharFormat& format) {
    format.setAnchor(true);
    format.setAnchorHref(OneIn(2) ? QStringLiteral("https://example.org/a?b=c&d={e}#f") : QStringLiteral("#place"));
  }

  void Effects(QTextCharFormat& format) {
    if (OneIn(12)) format.setProperty(kHiddenText, true);
    if (OneIn(12)) format.setProperty(kOutline, true);
    if (OneIn(12)) format.setProperty(kShadow, true);
    if (OneIn(12)) format.setProperty(kEmboss, OneIn(2) ? 1 : -1);
    if (OneIn(12)) format.setProperty(kBaselineShift, 6 - Below(13));
    if (OneIn(12)) format.setFontStretch(50 + Below(100));
    if (OneIn(12)) {
      format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
      format.setFontLetterSpacing(Pixels(100) - 2);
    }
  }

  QTextBlockFormat ParagraphFormat() {
    QTextBlockFormat format;
    if (OneIn(2)) return format;
    constexpr Qt::Alignment kAlignments[] = {Qt::AlignRight | Qt::AlignAbsolute, Qt::AlignHCenter, Qt::AlignJustify};
    if (OneIn(2)) format.setAlignment(kAlignments[Below(3)]);
    if (OneIn(3)) format.setLeftMargin(Pixels(3000));
    if (OneIn(3)) format.setRightMargin(Pixels(3000));
    if (OneIn(3)) format.setTextIndent(Pixels(1000) - 20);
    if (OneIn(3)) format.setTopMargin(Pixels(1000));
    if (OneIn(3)) format.setBottomMargin(Pixels(1000));
    if (OneIn(4)) Spacing(format);
    if (OneIn(5)) format.setTabPositions({{Pixels(2000) + 1, QTextOption::RightTab}, {140, QTextOption::CenterTab}});
    if (OneIn(8)) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (OneIn(8)) format.setProperty(kKeepTogether, true);
    if (OneIn(8)) format.setProperty(kKeepWithNext, true);
    if (OneIn(8)) format.setBackground(Ground());
    if (OneIn(8)) format.setProperty(kParagraphBorder, QStringLiteral("\\box\\brdrdb\\brdrw20\\brdrcf#12ab00"));
    if (OneIn(8)) format.setHeadingLevel(1 + Below(6));
    return format;
  }

  void Spacing(QTextBlockFormat& format) {
    constexpr QTextBlockFormat::LineHeightTypes kTypes[] = {
        QTextBlockFormat::ProportionalHeight, QTextBlockFormat::FixedHeight, QTextBlockFormat::MinimumHeight};
    const auto type = kTypes[Below(3)];
    format.setLineHeight(type == QTextBlockFormat::ProportionalHeight ? 150 : 20 + Below(20), type);
  }

  QTextListFormat ListFormat() {
    constexpr QTextListFormat::Style kStyles[] = {QTextListFormat::ListDisc,       QTextListFormat::ListCircle,
                                                  QTextListFormat::ListSquare,     QTextListFormat::ListDecimal,
                                                  QTextListFormat::ListLowerAlpha, QTextListFormat::ListUpperAlpha,
                                                  QTextListFormat::ListLowerRoman, QTextListFormat::ListUpperRoman};
    QTextListFormat format;
    format.setStyle(kStyles[Below(8)]);
    format.setIndent(1 + Below(3));
    if (OneIn(3) && !IsBullet(format)) format.setProperty(kListStart, Below(30));
    return format;
  }

  QTextCursor m_cursor;
  QRandomGenerator m_random;
  int m_pictures = 0;
};

}  // namespace

void FillWithRandomText(QTextDocument& document, quint32 seed, int size) {
  Writer(document, seed).Fill(size);
}

}  // namespace snipdeck::test

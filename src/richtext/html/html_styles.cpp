#include "richtext/html/html_styles.h"

#include <array>

#include <QFont>

#include "platform/units.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"
#include "richtext/paragraph_borders.h"

namespace snipdeck {
namespace {

void Declare(QString& css, const char* name, const QString& value) {
  css += QLatin1String(name) + QLatin1Char(':') + value + QLatin1Char(';');
}

void Declare(QString& css, const char* name, const char* value) {
  Declare(css, name, QString::fromLatin1(value));
}

QString Pixels(double length) {
  return QString::number(qRound(length * 100) / 100.0) + QLatin1String("px");
}

QString Families(const QStringList& families) {
  QStringList quoted;
  for (QString family : families) {
    quoted.append(QLatin1Char('\'') + EscapeHtml(family.remove(QLatin1Char('\''))) + QLatin1Char('\''));
  }
  return quoted.join(QLatin1Char(','));
}

bool IsVisible(const QBrush& brush) {
  return brush.style() != Qt::NoBrush && brush.color().alpha() != 0;
}

void Font(QString& css, const QTextCharFormat& format) {
  const QStringList families = format.fontFamilies().toStringList();
  if (!families.isEmpty() && !families.first().isEmpty()) Declare(css, "font-family", Families(families));
  if (HasPointSize(format)) {
    Declare(css, "font-size", QString::number(PointSize(format, QFont())) + QLatin1String("pt"));
  }
  if (format.hasProperty(QTextFormat::FontWeight)) {
    Declare(css, "font-weight", format.fontWeight() > QFont::Medium ? "bold" : "normal");
  }
  if (format.fontItalic()) Declare(css, "font-style", "italic");
  if (format.fontCapitalization() == QFont::SmallCaps) Declare(css, "font-variant", "small-caps");
  if (format.fontCapitalization() == QFont::AllUppercase) Declare(css, "text-transform", "uppercase");
  if (format.fontLetterSpacingType() == QFont::AbsoluteSpacing && format.fontLetterSpacing() != 0) {
    Declare(css, "letter-spacing", Pixels(format.fontLetterSpacing()));
  }
}

void Decoration(QString& css, const QTextCharFormat& format) {
  const bool underlined = format.underlineStyle() != QTextCharFormat::NoUnderline;
  if (underlined || format.fontStrikeOut()) {
    Declare(
        css, "text-decoration",
        underlined && format.fontStrikeOut() ? "underline line-through" : (underlined ? "underline" : "line-through"));
  } else if (format.isAnchor()) {
    Declare(css, "text-decoration", "none");
  }
  if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) Declare(css, "vertical-align", "super");
  if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) Declare(css, "vertical-align", "sub");
}

}  // namespace

QString CssForCharacters(const QTextCharFormat& format) {
  QString css;
  Font(css, format);
  Decoration(css, format);
  if (format.foreground().style() != Qt::NoBrush) Declare(css, "color", format.foreground().color().name());
  if (IsVisible(format.background())) Declare(css, "background-color", format.background().color().name());
  return css;
}

namespace {

const char* CssOfLine(QTextFrameFormat::BorderStyle style) {
  constexpr std::array<const char*, 11> kWords = {"none",   "dotted", "dashed", "solid", "double", "dashed",
                                                  "dashed", "groove", "ridge",  "inset", "outset"};
  const auto index = static_cast<std::size_t>(style);
  return index < kWords.size() ? kWords[index] : "solid";
}

void Borders(QString& css, const QTextBlockFormat& format) {
  if (!format.hasProperty(kParagraphBorder)) return;
  constexpr std::array<const char*, 4> kSides = {"top", "left", "bottom", "right"};
  const ParagraphBorders lines = BordersOf(format);
  for (std::size_t side = 0; side < kSides.size(); ++side) {
    const BorderLine& line = lines[side];
    if (line.width <= 0) continue;
    QString value = Pixels(line.width / kTwipsPerPixel) + u' ' + QLatin1String(CssOfLine(line.style));
    if (line.colour.isValid()) value += u' ' + line.colour.name();
    Declare(css, (QByteArray("border-") + kSides[side]).constData(), value);
    if (line.space > 0)
      Declare(css, (QByteArray("padding-") + kSides[side]).constData(), Pixels(line.space / kTwipsPerPixel));
  }
}

}  // namespace

QString CssForParagraph(const QTextBlockFormat& format) {
  QString css;
  Declare(css, "margin",
          Pixels(format.topMargin()) + u' ' + Pixels(format.rightMargin()) + u' ' + Pixels(format.bottomMargin()) +
              u' ' + Pixels(format.leftMargin()));
  if (format.textIndent() != 0) Declare(css, "text-indent", Pixels(format.textIndent()));
  if (format.alignment() & Qt::AlignHCenter) Declare(css, "text-align", "center");
  if (format.alignment() & Qt::AlignRight) Declare(css, "text-align", "right");
  if (format.alignment() & Qt::AlignJustify) Declare(css, "text-align", "justify");
  if (format.lineHeightType() == QTextBlockFormat::ProportionalHeight) {
    Declare(css, "line-height", QString::number(format.lineHeight()) + QLatin1Char('%'));
  } else if (format.lineHeightType() == QTextBlockFormat::FixedHeight) {
    Declare(css, "line-height", Pixels(format.lineHeight()));
  }
  if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) Declare(css, "page-break-before", "always");
  if (IsVisible(format.background())) Declare(css, "background-color", format.background().color().name());
  Borders(css, format);
  return css;
}

QString CssForCell(const QTextTableCellFormat& format) {
  constexpr std::array<const char*, 4> kSides = {"top", "bottom", "left", "right"};  // as Qt counts them
  QString css;
  for (int side = 0; side < 4; ++side) {
    const QByteArray name = kSides[static_cast<std::size_t>(side)];
    const int width = QTextFormat::TableCellTopBorder + side;
    if (format.hasProperty(width)) {
      const auto style =
          static_cast<QTextFrameFormat::BorderStyle>(format.intProperty(QTextFormat::TableCellTopBorderStyle + side));
      QString value = Pixels(format.doubleProperty(width)) + u' ' + QLatin1String(CssOfLine(style));
      const QBrush brush = format.brushProperty(QTextFormat::TableCellTopBorderBrush + side);
      if (IsVisible(brush)) value += u' ' + brush.color().name();
      Declare(css, ("border-" + name).constData(), value);
    }
    const int padding = QTextFormat::TableCellTopPadding + side;
    if (format.hasProperty(padding))
      Declare(css, ("padding-" + name).constData(), Pixels(format.doubleProperty(padding)));
  }
  return css;
}

QString EscapeHtml(QStringView text) {
  QString html;
  html.reserve(text.size());
  for (const QChar character : text) {
    switch (character.unicode()) {
      case u'&':
        html += QLatin1String("&amp;");
        break;
      case u'<':
        html += QLatin1String("&lt;");
        break;
      case u'>':
        html += QLatin1String("&gt;");
        break;
      case u'"':
        html += QLatin1String("&quot;");
        break;
      case QChar::LineSeparator:
        html += QLatin1String("<br>");
        break;
      default:
        html += character;
    }
  }
  return html;
}

}  // namespace snipdeck

#include "richtext/html/css_filter.h"

#include <optional>

#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include "richtext/html/css_colours.h"

namespace snipdeck {
namespace {

constexpr double kMediumPoints = 12;  // which the steps of sizes are given for
constexpr double kLongestPixels = 4000;
constexpr double kLargestPoints = 1000;
constexpr qsizetype kLongestValue = 300;

const QSet<QString>& KnownProperties() {
  static const QSet<QString> kNames = {"background",
                                       "background-color",
                                       "border-bottom-color",
                                       "border-bottom-style",
                                       "border-bottom-width",
                                       "border-collapse",
                                       "border-color",
                                       "border-left-color",
                                       "border-left-style",
                                       "border-left-width",
                                       "border-right-color",
                                       "border-right-style",
                                       "border-right-width",
                                       "border-style",
                                       "border-top-color",
                                       "border-top-style",
                                       "border-top-width",
                                       "border-width",
                                       "border",
                                       "border-top",
                                       "border-left",
                                       "border-right",
                                       "border-bottom",
                                       "color",
                                       "display",
                                       "font",
                                       "font-family",
                                       "font-size",
                                       "font-style",
                                       "font-variant",
                                       "font-weight",
                                       "letter-spacing",
                                       "line-height",
                                       "list-style-type",
                                       "margin",
                                       "margin-bottom",
                                       "margin-left",
                                       "margin-right",
                                       "margin-top",
                                       "padding",
                                       "padding-bottom",
                                       "padding-left",
                                       "padding-right",
                                       "padding-top",
                                       "page-break-after",
                                       "page-break-before",
                                       "text-align",
                                       "text-decoration",
                                       "text-decoration-line",
                                       "text-indent",
                                       "text-transform",
                                       "vertical-align",
                                       "visibility",
                                       "white-space",
                                       "width",
                                       "height"};
  return kNames;
}

/// Pixels in one unit; nothing for units that depend on what surrounds them.
std::optional<double> PixelsPerUnit(const QString& unit) {
  static const QHash<QString, double> kUnits = {{"px", 1},  {"pt", 96 / 72.0}, {"pc", 16},
                                                {"in", 96}, {"cm", 96 / 2.54}, {"mm", 96 / 25.4}};
  const auto found = kUnits.constFind(unit);
  return found == kUnits.cend() ? std::nullopt : std::optional(*found);
}

/// A number with its unit; nothing when the word is none.
struct Length {
  double number;
  QString unit;
};
std::optional<Length> ParseLength(const QString& word) {
  qsizetype end = 0;
  while (end < word.size() && (word[end].isDigit() || QStringView(u"+-.").contains(word[end]))) ++end;
  bool isNumber = false;
  const double number = QStringView(word).first(end).toDouble(&isNumber);
  const QString unit = word.mid(end);
  const bool isUnit = unit == QLatin1String("%") ||
                      std::all_of(unit.begin(), unit.end(), [](QChar one) { return one >= u'a' && one <= u'z'; });
  return isNumber && isUnit ? std::optional(Length{number, unit}) : std::nullopt;
}

/// A font size in points, and whether it says where it stands among the sizes around it.
struct FontSize {
  double points;
  bool isRelative;
};
std::optional<FontSize> ParseFontSize(const QString& value, const TextStyle& surrounding) {
  static const QHash<QString, double> kNamed = {
      {"xx-small", 7}, {"x-small", 7.5}, {"small", 10},    {"medium", kMediumPoints}, {"initial", kMediumPoints},
      {"large", 13.5}, {"x-large", 18},  {"xx-large", 24}, {"xxx-large", 36}};
  const auto relative = [](double points) { return FontSize{points, true}; };
  if (kNamed.contains(value)) return relative(kNamed[value] / kMediumPoints * surrounding.basePoints);
  if (value == QLatin1String("smaller")) return relative(surrounding.points / 1.2);
  if (value == QLatin1String("larger")) return relative(surrounding.points * 1.2);
  const auto length = ParseLength(value);
  if (!length) return std::nullopt;
  if (length->unit == QLatin1String("em")) return relative(length->number * surrounding.points);
  if (length->unit == QLatin1String("%")) return relative(length->number * surrounding.points / 100);
  if (length->unit == QLatin1String("rem")) return relative(length->number * surrounding.basePoints);
  const auto unit = PixelsPerUnit(length->unit);
  return unit ? std::optional(FontSize{length->number * *unit * 0.75, false}) : std::nullopt;
}

/// Words of lengths become pixels; other words stay as they are. Nothing when a length is beyond sense.
std::optional<QString> InPixels(const QString& value, const TextStyle& style) {
  QStringList words = value.split(u' ', Qt::SkipEmptyParts);
  for (QString& word : words) {
    const auto length = ParseLength(word);
    if (!length || length->unit == QLatin1String("%") || length->unit.isEmpty()) continue;
    auto unit = PixelsPerUnit(length->unit);
    if (length->unit == QLatin1String("em")) unit = style.points / 0.75;
    if (length->unit == QLatin1String("rem")) unit = style.basePoints / 0.75;
    if (!unit || std::abs(length->number * *unit) > kLongestPixels) return std::nullopt;
    word = QString::number(length->number * *unit) + QLatin1String("px");
  }
  return words.join(u' ');
}

bool IsForbidden(const QString& value) {
  return value.size() > kLongestValue || value.contains(QLatin1String("url(")) ||
         value.contains(QLatin1String("expression")) || value.contains(u'<') || value.contains(u'\\');
}

/// Unitless line heights are multiples, which Qt wants as a percentage.
void AdjustLineHeight(QString& value) {
  const auto length = ParseLength(value);
  if (length && length->unit.isEmpty()) value = QString::number(length->number * 100) + u'%';
}

/// Sets the size; the declaration of it is empty when the text has that size anyway.
std::optional<QString> AdjustFontSize(const QString& value, TextStyle& style) {
  constexpr double kNoDifference = 0.01;
  const auto size = ParseFontSize(value, style);
  if (!size || size->points <= 0 || size->points > kLargestPoints) return std::nullopt;
  if (size->isRelative && std::abs(size->points - style.points) < kNoDifference) return std::nullopt;
  style.points = size->points;
  style.isSized = true;
  return QString::number(size->points) + QLatin1String("pt");
}

TextStyle::Display DisplayOf(const QString& value) {
  static const QSet<QString> kBlocks = {"block", "flex", "grid", "list-item", "flow-root", "table", "table-row"};
  if (value == QLatin1String("none")) return TextStyle::Display::None;
  return kBlocks.contains(value) ? TextStyle::Display::Block : TextStyle::Display::AsNamed;
}

/// Which blanks collapse is settled before Qt sees the text; that lines do not wrap is its to know.
QString AdjustWhiteSpace(const QString& value, TextStyle& style) {
  if (value == QLatin1String("pre-line")) {
    style.blanks = TextStyle::Blanks::KeepLines;
  } else if (value.startsWith(QLatin1String("pre")) || value == QLatin1String("break-spaces")) {
    style.blanks = TextStyle::Blanks::Keep;
  } else if (value != QLatin1String("inherit")) {
    style.blanks = TextStyle::Blanks::Collapse;
  }
  return value == QLatin1String("pre") ? value : QStringLiteral("pre-wrap");
}

/// The value as Qt reads it; nothing when the declaration is not for it.
std::optional<QString> Adjust(const CssDeclaration& declaration, TextStyle& style) {
  const QString& property = declaration.property;
  QString value = declaration.value;
  if (property == QLatin1String("font-size")) return AdjustFontSize(value, style);
  if (property == QLatin1String("white-space")) return AdjustWhiteSpace(value, style);
  if (property == QLatin1String("font-family")) return value;
  if (property == QLatin1String("visibility")) {
    if (value == QLatin1String("hidden")) style.display = TextStyle::Display::None;
    return std::nullopt;
  }
  if (property == QLatin1String("display")) {
    style.display = DisplayOf(value);
    return std::nullopt;
  }
  if (property == QLatin1String("background-color") || property == QLatin1String("color")) {
    const QString colour = CssColour(value);
    return colour.isEmpty() ? std::nullopt : std::optional(colour);
  }
  if (property == QLatin1String("line-height")) AdjustLineHeight(value);
  return InPixels(value, style);
}

QString DocumentName(const QString& property) {
  if (property == QLatin1String("background")) return QStringLiteral("background-color");
  return property == QLatin1String("text-decoration-line") ? QStringLiteral("text-decoration") : property;
}

std::optional<CssDeclaration> Parse(QStringView text) {
  const qsizetype colon = text.indexOf(u':');
  if (colon < 0) return std::nullopt;
  CssDeclaration declaration{text.first(colon).trimmed().toString().toLower(),
                             text.mid(colon + 1).trimmed().toString()};
  if (!KnownProperties().contains(declaration.property)) return std::nullopt;
  const bool namesFonts =
      declaration.property == QLatin1String("font-family") || declaration.property == QLatin1String("font");
  if (!namesFonts) declaration.value = declaration.value.toLower();
  declaration.value.remove(QLatin1String("!important"), Qt::CaseInsensitive);
  declaration.value = declaration.value.trimmed();
  if (declaration.value.isEmpty() || IsForbidden(declaration.value)) return std::nullopt;
  declaration.property = DocumentName(declaration.property);
  return declaration;
}

/// The declarations that "font" stands for: words of style and weight in any order, the size, and then the families.
QString ExpandFont(const QString& value) {
  const QStringList words = value.split(u' ', Qt::SkipEmptyParts);
  QString css;
  for (qsizetype i = 0; i < words.size(); ++i) {
    const QString word = words[i].toLower();
    const QString size = word.section(u'/', 0, 0);
    if (!ParseFontSize(size, TextStyle())) {
      if (word == QLatin1String("italic") || word == QLatin1String("oblique"))
        css += QLatin1String("font-style:italic;");
      if (word.startsWith(QLatin1String("bold")) || word.toInt() >= 600) css += QLatin1String("font-weight:bold;");
      if (word == QLatin1String("small-caps")) css += QLatin1String("font-variant:small-caps;");
      continue;
    }
    css += QLatin1String("font-size:") + size + u';';
    if (word.contains(u'/')) css += QLatin1String("line-height:") + word.section(u'/', 1) + u';';
    return css + QLatin1String("font-family:") + words.mid(i + 1).join(u' ') + u';';
  }
  return {};  // without a size it says nothing
}

/// The end of the declaration that starts at `from`: its semicolon outside quotation marks and brackets.
qsizetype EndOfDeclaration(QStringView text, qsizetype from) {
  QChar quote;
  int depth = 0;
  for (qsizetype i = from; i < text.size(); ++i) {
    const QChar character = text[i];
    if (!quote.isNull()) {
      if (character == quote) quote = QChar();
    } else if (character == u'"' || character == u'\'') {
      quote = character;
    } else if (character == u'(') {
      ++depth;
    } else if (character == u')') {
      --depth;
    } else if (character == u';' && depth <= 0) {
      return i;
    }
  }
  return text.size();
}

}  // namespace

QList<CssDeclaration> ParseDeclarations(QStringView css) {
  QList<CssDeclaration> declarations;
  for (qsizetype at = 0; at < css.size();) {
    const qsizetype end = EndOfDeclaration(css, at);
    const auto declaration = Parse(css.mid(at, end - at));
    at = end + 1;
    if (!declaration) continue;
    const bool standsForMany = declaration->property == QLatin1String("font");
    Override(declarations,
             standsForMany ? ParseDeclarations(ExpandFont(declaration->value)) : QList<CssDeclaration>{*declaration});
  }
  return declarations;
}

void Override(QList<CssDeclaration>& declarations, const QList<CssDeclaration>& by) {
  for (const CssDeclaration& one : by) {
    declarations.removeIf([&](const CssDeclaration& other) { return other.property == one.property; });
    declarations.append(one);
  }
}

QString FilterDeclarations(const QList<CssDeclaration>& declarations, TextStyle& style) {
  QString css;
  // Lengths may be multiples of the font size, wherever that is said.
  for (const bool isForSize : {true, false}) {
    for (const CssDeclaration& declaration : declarations) {
      if ((declaration.property == QLatin1String("font-size")) != isForSize) continue;
      const auto value = Adjust(declaration, style);
      if (value) css += declaration.property + u':' + *value + u';';
    }
  }
  return css;
}

}  // namespace snipdeck

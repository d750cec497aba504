#include "richtext/html/css_filter.h"

#include <optional>

#include <QColor>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace snipdeck {
namespace {

constexpr double kDefaultPoints = 12;
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
  static const QRegularExpression kPattern(QStringLiteral("^([+-]?(?:\\d+\\.?\\d*|\\.\\d+))(%|[a-z]*)$"));
  const QRegularExpressionMatch match = kPattern.match(word);
  if (!match.hasMatch()) return std::nullopt;
  return Length{match.captured(1).toDouble(), match.captured(2)};
}

std::optional<double> FontPoints(const QString& value, double surrounding) {
  static const QHash<QString, double> kNamed = {{"xx-small", 7}, {"x-small", 7.5}, {"small", 10},    {"medium", 12},
                                                {"large", 13.5}, {"x-large", 18},  {"xx-large", 24}, {"xxx-large", 36}};
  if (kNamed.contains(value)) return kNamed[value];
  if (value == QLatin1String("smaller")) return surrounding / 1.2;
  if (value == QLatin1String("larger")) return surrounding * 1.2;
  const auto length = ParseLength(value);
  if (!length) return std::nullopt;
  if (length->unit == QLatin1String("em")) return length->number * surrounding;
  if (length->unit == QLatin1String("%")) return length->number * surrounding / 100;
  if (length->unit == QLatin1String("rem")) return length->number * kDefaultPoints;
  const auto unit = PixelsPerUnit(length->unit);
  return unit ? std::optional(length->number * *unit * 0.75) : std::nullopt;
}

/// Words of lengths become pixels; other words stay as they are. Nothing when a length is beyond sense.
std::optional<QString> InPixels(const QString& value, double fontSize) {
  QStringList words = value.split(u' ', Qt::SkipEmptyParts);
  for (QString& word : words) {
    const auto length = ParseLength(word);
    if (!length || length->unit == QLatin1String("%") || length->unit.isEmpty()) continue;
    const bool relative = length->unit == QLatin1String("em") || length->unit == QLatin1String("rem");
    const auto unit = relative ? std::optional(fontSize / 0.75) : PixelsPerUnit(length->unit);
    if (!unit || std::abs(length->number * *unit) > kLongestPixels) return std::nullopt;
    word = QString::number(length->number * *unit) + QLatin1String("px");
  }
  return words.join(u' ');
}

QString ColourWord(const QString& value) {
  static const QRegularExpression kColour(QStringLiteral("(#[0-9a-f]{3,8}\\b|rgba?\\([^)]*\\)|[a-z]+)"));
  for (auto it = kColour.globalMatch(value); it.hasNext();) {
    const QString word = it.next().captured(0);
    if (word.contains(u'(') || QColor(word).isValid()) return word;
  }
  return QString();
}

bool IsForbidden(const QString& value) {
  return value.size() > kLongestValue || value.contains(QLatin1String("url(")) ||
         value.contains(QLatin1String("expression")) || value.contains(u'<') || value.contains(u'\\');
}

struct Declaration {
  QString property;
  QString value;
};

/// Unitless line heights are multiples, which Qt wants as a percentage.
void AdjustLineHeight(QString& value) {
  const auto length = ParseLength(value);
  if (length && length->unit.isEmpty()) value = QString::number(length->number * 100) + u'%';
}

std::optional<Declaration> Adjust(Declaration declaration, double& fontSize) {
  auto& [property, value] = declaration;
  if (property == QLatin1String("font-size")) {
    const auto points = FontPoints(value, fontSize);
    if (!points || *points <= 0 || *points > kLargestPoints) return std::nullopt;
    fontSize = *points;
    value = QString::number(*points) + QLatin1String("pt");
    return declaration;
  }
  if (property == QLatin1String("display")) {
    return value == QLatin1String("none") ? std::optional(declaration) : std::nullopt;
  }
  if (property == QLatin1String("background")) property = QStringLiteral("background-color");
  if (property == QLatin1String("text-decoration-line")) property = QStringLiteral("text-decoration");
  if (property == QLatin1String("background-color") || property == QLatin1String("color")) {
    value = ColourWord(value);
    return value.isEmpty() ? std::nullopt : std::optional(declaration);
  }
  if (property == QLatin1String("line-height")) AdjustLineHeight(value);
  if (property == QLatin1String("font-family")) return declaration;
  const auto inPixels = InPixels(value, fontSize);
  if (!inPixels) return std::nullopt;
  value = *inPixels;
  return declaration;
}

std::optional<Declaration> Parse(QStringView text) {
  const qsizetype colon = text.indexOf(u':');
  if (colon < 0) return std::nullopt;
  Declaration declaration{text.first(colon).trimmed().toString().toLower(), text.mid(colon + 1).trimmed().toString()};
  if (!KnownProperties().contains(declaration.property)) return std::nullopt;
  const bool namesFonts =
      declaration.property == QLatin1String("font-family") || declaration.property == QLatin1String("font");
  if (!namesFonts) declaration.value = declaration.value.toLower();
  declaration.value.remove(QLatin1String("!important"), Qt::CaseInsensitive);
  declaration.value = declaration.value.trimmed();
  if (declaration.value.isEmpty() || IsForbidden(declaration.value)) return std::nullopt;
  return declaration;
}

/// The declarations that "font" stands for: words of style and weight in any order, the size, and then the families.
QString ExpandFont(const QString& value) {
  const QStringList words = value.split(u' ', Qt::SkipEmptyParts);
  QString css;
  for (qsizetype i = 0; i < words.size(); ++i) {
    const QString word = words[i].toLower();
    const QString size = word.section(u'/', 0, 0);
    if (!FontPoints(size, kDefaultPoints)) {
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

QString WithoutComments(QStringView sheet) {
  QString text;
  for (qsizetype at = 0; at < sheet.size();) {
    const qsizetype begin = sheet.indexOf(u"/*", at);
    text += sheet.mid(at, (begin < 0 ? sheet.size() : begin) - at);
    const qsizetype end = begin < 0 ? -1 : sheet.indexOf(u"*/", begin + 2);
    at = end < 0 ? sheet.size() : end + 2;
  }
  return text.remove(QLatin1String("<!--")).remove(QLatin1String("-->"));
}

/// The end of the block whose opening bracket stands before `from`.
qsizetype EndOfBlock(QStringView text, qsizetype from) {
  int depth = 1;
  for (qsizetype i = from; i < text.size(); ++i) {
    if (text[i] == u'{') ++depth;
    if (text[i] == u'}' && --depth == 0) return i;
  }
  return text.size();
}

/// Selectors of names, classes and descendants; others cost much and say little for a document.
bool IsPlainSelector(QStringView selector) {
  static const QRegularExpression kPlain(QStringLiteral("^[\\w.,#\\s*-]{1,300}$"));
  return kPlain.match(selector.toString()).hasMatch();
}

}  // namespace

QString FilterDeclarations(QStringView declarations, double& fontSize) {
  QString css;
  for (qsizetype at = 0; at < declarations.size();) {
    const qsizetype end = EndOfDeclaration(declarations, at);
    auto declaration = Parse(declarations.mid(at, end - at));
    if (declaration && declaration->property == QLatin1String("font")) {
      css += FilterDeclarations(ExpandFont(declaration->value), fontSize);
      declaration.reset();
    }
    if (declaration) declaration = Adjust(*declaration, fontSize);
    if (declaration) css += declaration->property + u':' + declaration->value + u';';
    at = end + 1;
  }
  return css;
}

QString FilterStyleSheet(QStringView sheet, int maxRules) {
  const QString text = WithoutComments(sheet);
  QString rules;
  int count = 0;
  for (qsizetype at = 0; at < text.size() && count < maxRules;) {
    const qsizetype open = text.indexOf(u'{', at);
    if (open < 0) break;
    const QStringView selector = QStringView(text).mid(at, open - at).trimmed();
    const qsizetype close = EndOfBlock(text, open + 1);
    at = close + 1;
    if (!IsPlainSelector(selector)) continue;
    double fontSize = kDefaultPoints;
    const QString css = FilterDeclarations(QStringView(text).mid(open + 1, close - open - 1), fontSize);
    if (css.isEmpty()) continue;
    rules += selector.toString() + u'{' + css + QLatin1String("}\n");
    ++count;
  }
  return rules;
}

}  // namespace snipdeck

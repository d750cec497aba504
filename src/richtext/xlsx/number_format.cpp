#include "richtext/xlsx/number_format.h"

#include <algorithm>
#include <cmath>

#include <QStringList>

#include "richtext/xlsx/shown_date.h"

namespace snipdeck {
namespace {

constexpr int kMostDecimals = 15;

struct Known {
  int number;
  const char* format;
};
constexpr Known kKnown[] = {
    {1, "0"},
    {2, "0.00"},
    {3, "#,##0"},
    {4, "#,##0.00"},
    {9, "0%"},
    {5, "$#,##0;($#,##0)"},
    {6, "$#,##0;($#,##0)"},
    {7, "$#,##0.00;($#,##0.00)"},
    {8, "$#,##0.00;($#,##0.00)"},
    {10, "0.00%"},
    {11, "0.00E+00"},
    {12, "# ?/?"},
    {13, "# ?\?/?\?"},
    {14, "m/d/yyyy"},
    {15, "d-mmm-yy"},
    {16, "d-mmm"},
    {17, "mmm-yy"},
    {18, "h:mm AM/PM"},
    {19, "h:mm:ss AM/PM"},
    {20, "h:mm"},
    {21, "h:mm:ss"},
    {22, "m/d/yyyy h:mm"},
    {37, "#,##0;(#,##0)"},
    {38, "#,##0;(#,##0)"},
    {39, "#,##0.00;(#,##0.00)"},
    {40, "#,##0.00;(#,##0.00)"},
    {41, "#,##0;-#,##0;\"-\""},
    {42, "$#,##0;-$#,##0;$\"-\""},
    {43, "#,##0.00;-#,##0.00;\"-\""},
    {44, "$#,##0.00;-$#,##0.00;$\"-\""},
    {45, "mm:ss"},
    {46, "[h]:mm:ss"},
    {47, "mm:ss.0"},
    {48, "##0.0E+0"},
    {49, "@"},
};

/// Numbers for the sheets of one country that show as others do elsewhere: from `first` to `last` all as `same`, or
/// each as the one as far behind it.
struct Alias {
  int first;
  int last;
  int same;
  bool counts = false;
};
constexpr Alias kAliases[] = {{27, 31, 14},       {32, 35, 21},       {36, 36, 14},       {50, 58, 14},
                              {59, 62, 1, true},  {67, 68, 9, true},  {69, 70, 12, true}, {71, 71, 14},
                              {72, 75, 14, true}, {76, 78, 20, true}, {79, 81, 45, true}};

QString General(double number) {
  if (number == std::floor(number) && std::abs(number) < 1e11) return QString::number(number, 'f', 0);
  QString text = QString::number(number, 'g', 10);
  return text.replace(QLatin1Char('e'), QLatin1Char('E'));
}

/// The number in the digits that the format's pieces ask for; signs and literals stand around it.
class Digits {
 public:
  explicit Digits(const std::vector<FormatToken>& tokens) {
    for (const FormatToken& token : tokens) {
      if (token.kind == FormatToken::Kind::Digits) m_pattern += token.text;
    }
    const qsizetype exponent = m_pattern.indexOf(QLatin1Char('E'), 0, Qt::CaseInsensitive);
    QString mantissa = exponent < 0 ? m_pattern : m_pattern.left(exponent);
    // A comma between digits groups them, one behind the last digit divides by a thousand.
    mantissa.remove(u'%');
    for (; mantissa.endsWith(u','); mantissa.chop(1)) ++m_thousands;
    m_exponentDigits = exponent < 0 ? 0 : static_cast<int>(std::max<qsizetype>(m_pattern.size() - exponent - 2, 1));
    const qsizetype point = mantissa.indexOf(u'.');
    const QString whole = point < 0 ? mantissa : mantissa.left(point);
    const QString part = point < 0 ? QString() : mantissa.mid(point + 1);
    m_least = static_cast<int>(std::min<qsizetype>(whole.count(u'0'), 30));
    m_mostDecimals = Places(part, QLatin1String("0#?"));
    m_leastDecimals = Places(part, QLatin1String("0"));
    m_percents = static_cast<int>(m_pattern.count(u'%'));
    m_isFraction = m_pattern.contains(u'/');
    m_groups = whole.contains(u',');
    m_isWhole = point < 0 && m_exponentDigits == 0 && !m_isFraction;
  }

  bool IsFraction() const { return m_isFraction; }
  bool IsWhole() const { return m_isWhole; }

  QString Show(double number) const {
    number = number * std::pow(100, m_percents) / std::pow(1000, m_thousands);
    QString text = m_exponentDigits ? Scientific(number) : m_isFraction ? Fraction(number) : Plain(number);
    return text + QString(m_percents, u'%');
  }

 private:
  static int Places(const QString& text, QLatin1String of) {
    const auto count = std::count_if(text.begin(), text.end(), [of](QChar c) { return of.contains(c); });
    return static_cast<int>(std::min<qsizetype>(count, kMostDecimals));
  }

  QString Plain(double number) const {
    QString text = QString::number(number, 'f', m_mostDecimals);
    qsizetype point = text.indexOf(u'.');
    while (point >= 0 && text.endsWith(u'0') && text.size() - point - 1 > m_leastDecimals) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    point = text.indexOf(u'.');
    QString whole = point < 0 ? text : text.left(point);
    if (whole == QLatin1String("0") && m_least == 0 && m_mostDecimals > 0) whole.clear();
    whole = whole.rightJustified(m_least, u'0');
    for (qsizetype at = whole.size() - 3; m_groups && at > 0; at -= 3) whole.insert(at, u',');
    return whole + (point < 0 ? QString() : text.mid(point));
  }

  QString Scientific(double number) const {
    QString text = QString::number(number, 'E', m_mostDecimals);
    const qsizetype at = text.indexOf(u'E');
    const QString exponent = QString::number(std::abs(text.mid(at + 1).toInt()));
    const bool isNegative = text.mid(at + 1, 1) == QLatin1String("-");
    return text.left(at) + (isNegative ? QLatin1String("E-") : QLatin1String("E+")) +
           exponent.rightJustified(m_exponentDigits, u'0');
  }

  QString Fraction(double number) const {
    const qsizetype stroke = m_pattern.indexOf(u'/');
    const int places = static_cast<int>(std::clamp<qsizetype>(m_pattern.size() - stroke - 1, 1, 3));
    const double whole = std::floor(number);
    int best = 0, bestBelow = 1;
    const int limit = static_cast<int>(std::pow(10, places));
    for (int below = 1; below < limit; ++below) {
      const int above = static_cast<int>(std::lround((number - whole) * below));
      const double error = std::abs(above / double(below) - (number - whole));
      if (error + 1e-9 < std::abs(best / double(bestBelow) - (number - whole))) best = above, bestBelow = below;
    }
    if (best == 0 || best == bestBelow) return QString::number(whole + (best == bestBelow), 'f', 0);
    const QString part = QStringLiteral("%1/%2").arg(best).arg(bestBelow);
    return whole == 0 ? part : QString::number(whole, 'f', 0) + u' ' + part;
  }

  QString m_pattern;
  int m_least = 0;
  int m_mostDecimals = 0;
  int m_leastDecimals = 0;
  int m_exponentDigits = 0;
  int m_percents = 0;
  int m_thousands = 0;
  bool m_groups = false;
  bool m_isFraction = false;
  bool m_isWhole = false;
};

/// The digits of a number for the pieces of a format with other characters between them, as "000-0000": the last piece
/// takes as many as it has places, and so on up to the first, which takes the rest.
QStringList Spread(const QString& digits, const std::vector<FormatToken>& tokens) {
  QStringList parts;
  qsizetype left = digits.size();
  for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
    if (token->kind != FormatToken::Kind::Digits) continue;
    const qsizetype size = std::min(token->text.size(), left);
    parts.prepend(digits.mid(left - size, size));
    left -= size;
  }
  if (!parts.isEmpty()) parts.first().prepend(digits.left(left));
  return parts;
}

QString Show(double number, const NumberSection& section, bool since1904) {
  const std::vector<FormatToken>& tokens = section.Tokens();
  if (section.HasDate() && (number < 0 || number >= kLargestDay)) return General(number);
  const ShownDate date(section.HasDate() ? number : 0, section, since1904);
  const Digits digits(tokens);
  const QString shown = section.HasDigits() ? digits.Show(number) : QString();
  QStringList parts = digits.IsWhole() ? Spread(shown, tokens) : QStringList{shown};
  QString text;
  bool isInFraction = false;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const FormatToken& token = tokens[i];
    if (token.kind == FormatToken::Kind::Literal && !(isInFraction && token.text.trimmed().isEmpty()))
      text += token.text;
    if (token.kind == FormatToken::Kind::Date) text += date.Show(i);
    if (token.kind == FormatToken::Kind::General || token.kind == FormatToken::Kind::Text) text += General(number);
    if (token.kind != FormatToken::Kind::Digits) continue;
    if (!parts.isEmpty()) text += parts.takeFirst();
    isInFraction = digits.IsFraction();
  }
  return text;
}

/// The section for a number: by the conditions where there are any, else by its sign.
std::size_t IndexFor(double number, const std::vector<NumberSection>& sections) {
  if (std::none_of(sections.begin(), sections.end(), [](const NumberSection& section) { return section.Only(); }))
    return number < 0 && sections.size() > 1 ? 1 : number == 0 && sections.size() > 2 ? 2 : 0;
  const auto found = std::find_if(sections.begin(), sections.end(), [number](const NumberSection& section) {
    return !section.Only() || section.Only()->Holds(number);
  });
  return found == sections.end() ? sections.size() - 1 : static_cast<std::size_t>(found - sections.begin());
}

/// Whether a negative number shows its sign; a section for these alone has a sign of its own, where it has one.
bool ShowsSign(const std::optional<NumberSection::Condition>& only, std::size_t index) {
  return only ? only->Holds(0) || only->Holds(1) : index == 0;
}

}  // namespace

QString BuiltInFormat(int number) {
  const auto alias = std::find_if(std::begin(kAliases), std::end(kAliases), [number](const Alias& candidate) {
    return number >= candidate.first && number <= candidate.last;
  });
  const int own = alias == std::end(kAliases) ? number : alias->same + (alias->counts ? number - alias->first : 0);
  const auto known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                  [own](const Known& candidate) { return candidate.number == own; });
  return known == std::end(kKnown) ? QString() : QString::fromLatin1(known->format);
}

QString FormatCellNumber(double number, const QString& format, bool since1904) {
  if (!std::isfinite(number)) return QString();
  const std::vector<NumberSection> sections = SectionsOf(format);
  const std::size_t index = IndexFor(number, sections);
  const NumberSection& section = sections[index];
  if (section.Tokens().empty() && sections.size() > 1) return QString();
  if (section.IsGeneral() && !section.HasDigits() && section.Tokens().size() <= 1) return General(number);
  if (section.HasDate()) return Show(number, section, since1904);
  const bool isNegative = number < 0 && ShowsSign(section.Only(), index);
  const QString text = Show(std::abs(number), section, since1904);
  return isNegative ? QLatin1Char('-') + text : text;
}

}  // namespace snipdeck

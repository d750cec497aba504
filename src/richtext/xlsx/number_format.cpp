#include "richtext/xlsx/number_format.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QDateTime>
#include <QLocale>
#include <QStringList>

namespace snipdeck {
namespace {

constexpr int kMostDecimals = 15;
constexpr double kLargestDay = 2958466;  // the first day after the year 9999
constexpr double kMillisecondsPerDay = 86'400'000;

struct Known {
  int number;
  const char* format;
};
constexpr Known kKnown[] = {
    {1, "0"},           {2, "0.00"},         {3, "#,##0"},     {4, "#,##0.00"},        {9, "0%"},
    {10, "0.00%"},      {11, "0.00E+00"},    {12, "# ?/?"},    {13, "# ?\?/?\?"},      {14, "m/d/yyyy"},
    {15, "d-mmm-yy"},   {16, "d-mmm"},       {17, "mmm-yy"},   {18, "h:mm AM/PM"},     {19, "h:mm:ss AM/PM"},
    {20, "h:mm"},       {21, "h:mm:ss"},     {22, "m/d/yyyy h:mm"}, {37, "#,##0;(#,##0)"}, {38, "#,##0;(#,##0)"},
    {39, "#,##0.00;(#,##0.00)"}, {40, "#,##0.00;(#,##0.00)"}, {41, "#,##0;-#,##0;\"-\""},
    {42, "$#,##0;-$#,##0;$\"-\""}, {43, "#,##0.00;-#,##0.00;\"-\""}, {44, "$#,##0.00;-$#,##0.00;$\"-\""},
    {45, "mm:ss"},      {46, "[h]:mm:ss"},   {47, "mm:ss.0"},  {48, "##0.0E+0"},       {49, "@"},
};

/// One piece of a format: characters that show as they are, or a word that stands for a part of the number.
struct Token {
  enum class Kind { Literal, Digits, Date, General, Text };
  Kind kind;
  QString text;
};

bool IsDateLetter(QChar c) {
  return QStringLiteral("ymdhs").contains(c.toLower());
}

bool IsDigitLetter(QChar c) {
  return QStringLiteral("0#?.,%/").contains(c);
}

class Section {
 public:
  explicit Section(const QString& text) { Split(text); }

  bool HasDate() const { return Has(Token::Kind::Date); }
  bool HasDigits() const { return Has(Token::Kind::Digits); }
  bool IsGeneral() const { return Has(Token::Kind::General) || Has(Token::Kind::Text) || m_tokens.empty(); }
  const std::vector<Token>& Tokens() const { return m_tokens; }

 private:
  bool Has(Token::Kind kind) const {
    return std::any_of(m_tokens.begin(), m_tokens.end(), [kind](const Token& token) { return token.kind == kind; });
  }

  void Add(Token::Kind kind, const QString& text) {
    const bool joins = !m_tokens.empty() && m_tokens.back().kind == kind && kind == Token::Kind::Literal;
    if (joins) {
      m_tokens.back().text += text;
    } else {
      m_tokens.push_back({kind, text});
    }
  }

  void Split(const QString& text) {
    for (qsizetype i = 0; i < text.size();) i = Take(text, i);
  }

  // Returns where the next piece begins.
  qsizetype Take(const QString& text, qsizetype i) {
    const QChar c = text[i];
    if (c == u'"') return Quoted(text, i);
    if (c == u'[') return Bracketed(text, i);
    if (c == u'\\' || c == u'!') return Literal(text.mid(i + 1, 1), i + 2);
    if (c == u'_') return Literal(QString(), i + 2);
    if (c == u'*') return i + 2;
    if (QStringView(text).mid(i).startsWith(QLatin1String("General"), Qt::CaseInsensitive)) {
      Add(Token::Kind::General, {});
      return i + 7;
    }
    for (const char* half : {"AM/PM", "A/P"}) {
      if (!QStringView(text).mid(i).startsWith(QLatin1String(half), Qt::CaseInsensitive)) continue;
      Add(Token::Kind::Date, QLatin1String(half));
      return i + static_cast<qsizetype>(qstrlen(half));
    }
    if (IsDateLetter(c)) return Run(text, i, Token::Kind::Date, [c](QChar next) { return next.toLower() == c.toLower(); });
    if (c == u'.' && i > 0 && HasDate() && text.mid(i + 1, 1) == QLatin1String("0"))
      return Run(text, i, Token::Kind::Date, [](QChar next) { return next == u'.' || next == u'0'; });
    if (c == u'E' || c == u'e') return Exponent(text, i);
    if (c == u'@') {
      Add(Token::Kind::Text, {});
      return i + 1;
    }
    // Between the parts of dates, a stroke is one.
    if (IsDigitLetter(c) && !(HasDate() && !HasDigits()))
      return Run(text, i, Token::Kind::Digits, IsDigitLetter);
    return Literal(QString(c), i + 1);
  }

  template <typename Belongs>
  qsizetype Run(const QString& text, qsizetype i, Token::Kind kind, Belongs belongs) {
    qsizetype end = i;
    while (end < text.size() && belongs(text[end])) ++end;
    Add(kind, text.mid(i, end - i));
    return end;
  }

  qsizetype Literal(const QString& text, qsizetype next) {
    Add(Token::Kind::Literal, text);
    return next;
  }

  qsizetype Quoted(const QString& text, qsizetype i) {
    const qsizetype end = text.indexOf(u'"', i + 1);
    return Literal(text.mid(i + 1, (end < 0 ? text.size() : end) - i - 1), end < 0 ? text.size() : end + 1);
  }

  // Colours and conditions say nothing here; a currency shows its sign; hours in brackets go on beyond a day.
  qsizetype Bracketed(const QString& text, qsizetype i) {
    const qsizetype end = text.indexOf(u']', i);
    if (end < 0) return text.size();
    const QString inside = text.mid(i + 1, end - i - 1);
    if (inside.startsWith(u'$')) return Literal(inside.mid(1).section(u'-', 0, 0), end + 1);
    const bool isElapsed = !inside.isEmpty() && std::all_of(inside.begin(), inside.end(), IsDateLetter);
    if (isElapsed) Add(Token::Kind::Date, QLatin1Char('[') + inside.toLower());
    return end + 1;
  }

  qsizetype Exponent(const QString& text, qsizetype i) {
    const QString sign = text.mid(i + 1, 1);
    if (sign != QLatin1String("+") && sign != QLatin1String("-")) return Literal(text.mid(i, 1), i + 1);
    qsizetype end = i + 2;
    while (end < text.size() && text[end] == u'0') ++end;
    Add(Token::Kind::Digits, text.mid(i, end - i));
    return end;
  }

  std::vector<Token> m_tokens;
};

QString General(double number) {
  if (number == std::floor(number) && std::abs(number) < 1e11) return QString::number(number, 'f', 0);
  QString text = QString::number(number, 'g', 10);
  return text.replace(QLatin1Char('e'), QLatin1Char('E'));
}

/// The number in the digits that the format's pieces ask for; signs and literals stand around it.
class Digits {
 public:
  explicit Digits(const std::vector<Token>& tokens) {
    for (const Token& token : tokens) {
      if (token.kind == Token::Kind::Digits) m_pattern += token.text;
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
QStringList Spread(const QString& digits, const std::vector<Token>& tokens) {
  QStringList parts;
  qsizetype left = digits.size();
  for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
    if (token->kind != Token::Kind::Digits) continue;
    const qsizetype size = std::min(token->text.size(), left);
    parts.prepend(digits.mid(left - size, size));
    left -= size;
  }
  if (!parts.isEmpty()) parts.first().prepend(digits.left(left));
  return parts;
}

/// The parts of a day that a format names.
class DateShower {
 public:
  DateShower(double number, const std::vector<Token>& tokens, bool since1904) : m_number(number), m_tokens(tokens) {
    const double days = number + (since1904 ? 1462 : 0);
    // The calendar of spreadsheets has a 29th of February 1900, so that the days before it stand one off.
    const QDate first(1899, 12, days < 60 ? 31 : 30);
    const bool hasTenths = std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.text.startsWith(u'.'); });
    const double unit = hasTenths ? 1 : 1000;
    const double milliseconds = std::round(days * kMillisecondsPerDay / unit) * unit;
    m_date = first.addDays(static_cast<qint64>(std::floor(milliseconds / kMillisecondsPerDay)));
    m_time = QTime::fromMSecsSinceStartOfDay(static_cast<int>(std::fmod(milliseconds, kMillisecondsPerDay)));
    m_isHalf = std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.text.contains(QLatin1Char('/')) && t.kind == Token::Kind::Date; });
  }

  QString Show(std::size_t index) const {
    const QString& word = m_tokens[index].text;
    const QChar letter = word.isEmpty() ? QChar() : word[0].toLower();
    const auto size = static_cast<int>(word.size());
    if (letter == u'[') return Elapsed(word.mid(1));
    if (letter == u'.') return QString::number(m_time.msec() / 1000.0, 'f', std::min(size - 1, 3)).mid(1);
    if (letter == u'a') return Half(word);
    if (letter == u'y') return size > 2 ? Padded(m_date.year(), 4) : Padded(m_date.year() % 100, 2);
    if (letter == u'd') return Day(size);
    if (letter == u'h') return Padded(m_isHalf ? (m_time.hour() + 11) % 12 + 1 : m_time.hour(), size);
    if (letter == u's') return Padded(m_time.second(), size);
    return IsMinute(index) ? Padded(m_time.minute(), size) : Month(size);
  }

 private:
  static QString Padded(int number, int size) {
    return QString::number(number).rightJustified(std::min(size, 4), u'0');
  }

  /// An m stands for minutes behind hours and in front of seconds.
  bool IsMinute(std::size_t index) const {
    const auto letterAt = [&](std::ptrdiff_t at, std::ptrdiff_t step) {
      for (at += step; at >= 0 && at < std::ssize(m_tokens); at += step) {
        const Token& token = m_tokens[static_cast<std::size_t>(at)];
        if (token.kind == Token::Kind::Date) return token.text[token.text.startsWith(u'[') && token.text.size() > 1].toLower();
      }
      return QChar();
    };
    const auto at = static_cast<std::ptrdiff_t>(index);
    return letterAt(at, -1) == u'h' || letterAt(at, 1) == u's';
  }

  QString Elapsed(const QString& word) const {
    const double units = word.startsWith(u'h') ? 24 : word.startsWith(u'm') ? 1440 : 86400;
    return QString::number(std::floor(m_number * units + 1e-6), 'f', 0).rightJustified(word.size(), u'0');
  }

  QString Half(const QString& word) const {
    const bool isMorning = m_time.hour() < 12;
    if (word.size() == 3) return isMorning ? QStringLiteral("A") : QStringLiteral("P");
    return isMorning ? QStringLiteral("AM") : QStringLiteral("PM");
  }

  QString Day(int size) const {
    if (size == 3) return QLocale::c().dayName(m_date.dayOfWeek(), QLocale::ShortFormat);
    return size > 3 ? QLocale::c().dayName(m_date.dayOfWeek()) : Padded(m_date.day(), size);
  }

  QString Month(int size) const {
    if (size == 3) return QLocale::c().monthName(m_date.month(), QLocale::ShortFormat);
    if (size == 5) return QLocale::c().monthName(m_date.month()).left(1);
    return size > 3 ? QLocale::c().monthName(m_date.month()) : Padded(m_date.month(), size);
  }

  const double m_number;
  const std::vector<Token>& m_tokens;
  QDate m_date;
  QTime m_time;
  bool m_isHalf = false;
};

QString Show(double number, const Section& section, bool since1904) {
  const std::vector<Token>& tokens = section.Tokens();
  if (section.HasDate() && (number < 0 || number >= kLargestDay)) return General(number);
  const DateShower date(section.HasDate() ? number : 0, tokens, since1904);
  const Digits digits(tokens);
  const QString shown = section.HasDigits() ? digits.Show(number) : QString();
  QStringList parts = digits.IsWhole() ? Spread(shown, tokens) : QStringList{shown};
  QString text;
  bool isInFraction = false;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.kind == Token::Kind::Literal && !(isInFraction && token.text.trimmed().isEmpty())) text += token.text;
    if (token.kind == Token::Kind::Date) text += date.Show(i);
    if (token.kind == Token::Kind::General || token.kind == Token::Kind::Text) text += General(number);
    if (token.kind != Token::Kind::Digits) continue;
    if (!parts.isEmpty()) text += parts.takeFirst();
    isInFraction = digits.IsFraction();
  }
  return text;
}

/// The parts of a format between semicolons outside of quotes.
QStringList SplitSections(const QString& format) {
  QStringList sections{QString()};
  bool isQuoted = false;
  for (qsizetype i = 0; i < format.size(); ++i) {
    if (format[i] == u'"') isQuoted = !isQuoted;
    if (format[i] == u'\\' && !isQuoted) sections.last() += format[i++];
    if (i < format.size() && format[i] == u';' && !isQuoted) {
      sections.append(QString());
    } else if (i < format.size()) {
      sections.last() += format[i];
    }
  }
  return sections;
}

}  // namespace

QString BuiltInFormat(int number) {
  const auto known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                  [number](const Known& candidate) { return candidate.number == number; });
  return known == std::end(kKnown) ? QString() : QString::fromLatin1(known->format);
}

QString FormatCellNumber(double number, const QString& format, bool since1904) {
  if (!std::isfinite(number)) return QString();
  const QStringList sections = SplitSections(format.left(1000));
  const int index = number < 0 && sections.size() > 1 ? 1 : number == 0 && sections.size() > 2 ? 2 : 0;
  const Section section(sections[index]);
  if (section.IsGeneral() && !section.HasDigits() && section.Tokens().size() <= 1) return General(number);
  if (section.HasDate()) return Show(number, section, since1904);
  // A second section has a sign of its own, where it has one.
  const bool isNegative = number < 0 && index == 0;
  const QString text = Show(std::abs(number), section, since1904);
  return isNegative ? QLatin1Char('-') + text : text;
}

}  // namespace snipdeck

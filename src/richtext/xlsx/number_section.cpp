#include "richtext/xlsx/number_section.h"

#include <algorithm>
#include <cstdint>

#include <QStringList>

namespace snipdeck {
namespace {

using Kind = FormatToken::Kind;

constexpr qsizetype kLongest = 1000;

/// The languages of Windows' numbers, by the ten bits that say nothing about the country.
struct Language {
  std::uint16_t number;
  QLocale::Language language;
};
constexpr Language kLanguages[] = {
    {0x01, QLocale::Arabic},    {0x02, QLocale::Bulgarian},  {0x03, QLocale::Catalan},
    {0x04, QLocale::Chinese},   {0x05, QLocale::Czech},      {0x06, QLocale::Danish},
    {0x07, QLocale::German},    {0x08, QLocale::Greek},      {0x0A, QLocale::Spanish},
    {0x0B, QLocale::Finnish},   {0x0C, QLocale::French},     {0x0D, QLocale::Hebrew},
    {0x0E, QLocale::Hungarian}, {0x10, QLocale::Italian},    {0x11, QLocale::Japanese},
    {0x12, QLocale::Korean},    {0x13, QLocale::Dutch},      {0x14, QLocale::NorwegianBokmal},
    {0x15, QLocale::Polish},    {0x16, QLocale::Portuguese}, {0x18, QLocale::Romanian},
    {0x19, QLocale::Russian},   {0x1B, QLocale::Slovak},     {0x1D, QLocale::Swedish},
    {0x1E, QLocale::Thai},      {0x1F, QLocale::Turkish},    {0x22, QLocale::Ukrainian},
    {0x24, QLocale::Slovenian}, {0x25, QLocale::Estonian},   {0x26, QLocale::Latvian},
    {0x27, QLocale::Lithuanian}};

/// The language behind the dash of a currency: a number in hexadecimal digits, or a name.
QLocale LanguageNamed(const QString& name) {
  bool isNumber = false;
  const uint number = name.toUInt(&isNumber, 16) & 0x3FF;
  if (!isNumber) return name.startsWith(QLatin1String("x-")) ? QLocale::c() : QLocale(name);
  const auto known = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                  [number](const Language& candidate) { return candidate.number == number; });
  return known == std::end(kLanguages) ? QLocale::c() : QLocale(known->language);
}

bool IsDateLetter(QChar c) {
  return QStringLiteral("ymdhs").contains(c.toLower());
}

/// Letters of eastern calendars: Buddhist years, years of an era.
bool IsEasternLetter(QChar c) {
  return QStringLiteral("be").contains(c.toLower());
}

bool IsDigitLetter(QChar c) {
  return QStringLiteral("0#?.,%/").contains(c);
}

}  // namespace

bool NumberSection::Condition::Holds(double number) const {
  if (sign == QLatin1String("<")) return number < limit;
  if (sign == QLatin1String("<=")) return number <= limit;
  if (sign == QLatin1String(">")) return number > limit;
  if (sign == QLatin1String(">=")) return number >= limit;
  return (number == limit) == (sign == QLatin1String("="));
}

NumberSection::NumberSection(const QString& text) {
  for (qsizetype i = 0; i < text.size();) i = Take(text, i);
}

bool NumberSection::IsGeneral() const {
  return Has(Kind::General) || Has(Kind::Text) || m_tokens.empty();
}

bool NumberSection::Has(Kind kind) const {
  return std::any_of(m_tokens.begin(), m_tokens.end(), [kind](const FormatToken& token) { return token.kind == kind; });
}

void NumberSection::Add(Kind kind, const QString& text) {
  const bool joins = !m_tokens.empty() && m_tokens.back().kind == kind && kind == Kind::Literal;
  if (joins) {
    m_tokens.back().text += text;
  } else {
    m_tokens.push_back({kind, text});
  }
}

qsizetype NumberSection::Take(const QString& text, qsizetype i) {
  const QChar c = text[i];
  const auto same = [c](QChar next) { return next.toLower() == c.toLower(); };
  if (c == u'"') return Quoted(text, i);
  if (c == u'[') return Bracketed(text, i);
  if (c == u'\\' || c == u'!') return Literal(text.mid(i + 1, 1), i + 2);
  if (c == u'_') return Literal(QString(), i + 2);
  if (c == u'*') return i + 2;
  if (QStringView(text).mid(i).startsWith(QLatin1String("General"), Qt::CaseInsensitive)) {
    Add(Kind::General, {});
    return i + 7;
  }
  for (const char* half : {"AM/PM", "A/P"}) {
    if (!QStringView(text).mid(i).startsWith(QLatin1String(half), Qt::CaseInsensitive)) continue;
    Add(Kind::Date, QLatin1String(half));
    return i + static_cast<qsizetype>(qstrlen(half));
  }
  const bool isExponent =
      same(u'e') && (text.mid(i + 1, 1) == QLatin1String("+") || text.mid(i + 1, 1) == QLatin1String("-"));
  const bool isWeekday = QStringView(text).mid(i).startsWith(QLatin1String("aaa"), Qt::CaseInsensitive);
  if (isExponent) return Exponent(text, i);
  if (IsDateLetter(c) || (!HasDigits() && (isWeekday || IsEasternLetter(c)))) return Run(text, i, Kind::Date, same);
  if (c == u'.' && i > 0 && HasDate() && text.mid(i + 1, 1) == QLatin1String("0"))
    return Run(text, i, Kind::Date, [](QChar next) { return next == u'.' || next == u'0'; });
  if (same(u'g') && !HasDigits()) return i + 1;  // the era, which the years of our calendar do not need
  if (c == u'@') {
    Add(Kind::Text, {});
    return i + 1;
  }
  // Between the parts of dates, a stroke is one.
  if (IsDigitLetter(c) && !(HasDate() && !HasDigits())) return Run(text, i, Kind::Digits, IsDigitLetter);
  return Literal(QString(c), i + 1);
}

template <typename Belongs>
qsizetype NumberSection::Run(const QString& text, qsizetype i, Kind kind, Belongs belongs) {
  qsizetype end = i;
  while (end < text.size() && belongs(text[end])) ++end;
  Add(kind, text.mid(i, end - i));
  return end;
}

qsizetype NumberSection::Literal(const QString& text, qsizetype next) {
  Add(Kind::Literal, text);
  return next;
}

qsizetype NumberSection::Quoted(const QString& text, qsizetype i) {
  const qsizetype end = text.indexOf(u'"', i + 1);
  return Literal(text.mid(i + 1, (end < 0 ? text.size() : end) - i - 1), end < 0 ? text.size() : end + 1);
}

// Colours say nothing here; hours in brackets go on beyond a day.
qsizetype NumberSection::Bracketed(const QString& text, qsizetype i) {
  const qsizetype end = text.indexOf(u']', i);
  if (end < 0) return text.size();
  const QString inside = text.mid(i + 1, end - i - 1);
  if (inside.startsWith(u'$')) {
    SetCurrency(inside.mid(1));
  } else if (inside.startsWith(u'<') || inside.startsWith(u'>') || inside.startsWith(u'=')) {
    const bool isLong = inside.size() > 1 && (inside[1] == u'=' || inside[1] == u'>');
    m_condition = Condition{inside.left(isLong ? 2 : 1), inside.mid(isLong ? 2 : 1).toDouble()};
  } else if (!inside.isEmpty() && std::all_of(inside.begin(), inside.end(), IsDateLetter)) {
    Add(Kind::Date, QLatin1Char('[') + inside.toLower());
  }
  return end + 1;
}

void NumberSection::SetCurrency(const QString& inside) {
  Add(Kind::Literal, inside.section(u'-', 0, 0));
  const QString language = inside.section(u'-', 1);
  if (!language.isEmpty()) m_language = LanguageNamed(language);
}

qsizetype NumberSection::Exponent(const QString& text, qsizetype i) {
  qsizetype end = i + 2;
  while (end < text.size() && text[end] == u'0') ++end;
  Add(Kind::Digits, text.mid(i, end - i));
  return end;
}

std::vector<NumberSection> SectionsOf(const QString& format) {
  QStringList parts{QString()};
  bool isQuoted = false;
  const qsizetype size = std::min(format.size(), kLongest);
  for (qsizetype i = 0; i < size; ++i) {
    if (format[i] == u'"') isQuoted = !isQuoted;
    if (format[i] == u'\\' && !isQuoted) parts.last() += format[i++];
    if (i < size && format[i] == u';' && !isQuoted) {
      parts.append(QString());
    } else if (i < size) {
      parts.last() += format[i];
    }
  }
  std::vector<NumberSection> sections;
  for (const QString& part : std::as_const(parts)) sections.emplace_back(part);
  return sections;
}

}  // namespace snipdeck

#include "richtext/xlsx/shown_date.h"

#include <algorithm>
#include <cmath>

namespace snipdeck {
namespace {

constexpr qint64 kMillisecondsPerDay = 86'400'000;
constexpr int kDaysTo1904 = 1462;
constexpr int kBuddhistYears = 543;

QString Padded(int number, int size) {
  return QString::number(number).rightJustified(std::min(size, 4), u'0');
}

/// The milliseconds of the smallest part of a second that the pieces show.
int SmallestPart(const std::vector<FormatToken>& tokens) {
  qsizetype digits = 0;
  for (const FormatToken& token : tokens) {
    if (token.kind == FormatToken::Kind::Date && token.text.startsWith(u'.')) digits = token.text.size() - 1;
  }
  return digits == 0 ? 1000 : digits == 1 ? 100 : digits == 2 ? 10 : 1;
}

}  // namespace

ShownDate::ShownDate(double number, const NumberSection& section, bool since1904)
    : m_tokens(section.Tokens()), m_language(section.Language()) {
  const double unit = SmallestPart(m_tokens);
  m_milliseconds = static_cast<qint64>(std::round(number * kMillisecondsPerDay / unit) * unit);
  const qint64 days = m_milliseconds / kMillisecondsPerDay + (since1904 ? kDaysTo1904 : 0);
  // The calendar of spreadsheets has a 29th of February 1900, so that the days before it stand one off.
  const QDate first(1899, 12, days < 60 ? 31 : 30);
  m_date = first.addDays(days);
  m_time = QTime::fromMSecsSinceStartOfDay(static_cast<int>(m_milliseconds % kMillisecondsPerDay));
  m_isHalf = std::any_of(m_tokens.begin(), m_tokens.end(), [](const FormatToken& token) {
    return token.kind == FormatToken::Kind::Date && token.text.contains(QLatin1Char('/'));
  });
}

QString ShownDate::Show(std::size_t index) const {
  const QString& word = m_tokens[index].text;
  const QChar letter = word.isEmpty() ? QChar() : word[0].toLower();
  const auto size = static_cast<int>(word.size());
  if (letter == u'[') return Elapsed(word.mid(1));
  if (letter == u'.') return u'.' + Padded(m_time.msec(), 3).leftJustified(size - 1, u'0').left(size - 1);
  if (letter == u'a' && word.contains(u'/')) return Half(word);
  if (letter == u'a') return Day(size);
  if (letter == u'y' || letter == u'e') return size == 2 ? Padded(m_date.year() % 100, 2) : Padded(m_date.year(), 4);
  if (letter == u'b') return Padded((m_date.year() + kBuddhistYears) % (size > 2 ? 10'000 : 100), size);
  if (letter == u'd') return Day(size);
  if (letter == u'h') return Padded(m_isHalf ? (m_time.hour() + 11) % 12 + 1 : m_time.hour(), size);
  if (letter == u's') return Padded(m_time.second(), size);
  return IsMinute(index) ? Padded(m_time.minute(), size) : Month(size);
}

/// An m stands for minutes behind hours and in front of seconds.
bool ShownDate::IsMinute(std::size_t index) const {
  const auto letterAt = [&](std::ptrdiff_t at, std::ptrdiff_t step) {
    for (at += step; at >= 0 && at < std::ssize(m_tokens); at += step) {
      const FormatToken& token = m_tokens[static_cast<std::size_t>(at)];
      if (token.kind == FormatToken::Kind::Date)
        return token.text[token.text.startsWith(u'[') && token.text.size() > 1].toLower();
    }
    return QChar();
  };
  const auto at = static_cast<std::ptrdiff_t>(index);
  return letterAt(at, -1) == u'h' || letterAt(at, 1) == u's';
}

QString ShownDate::Elapsed(const QString& word) const {
  const qint64 unit = word.startsWith(u'h') ? 3'600'000 : word.startsWith(u'm') ? 60'000 : 1000;
  return QString::number(m_milliseconds / unit).rightJustified(word.size(), u'0');
}

QString ShownDate::Half(const QString& word) const {
  const bool isMorning = m_time.hour() < 12;
  if (word.size() == 3) return isMorning ? QStringLiteral("A") : QStringLiteral("P");
  return isMorning ? QStringLiteral("AM") : QStringLiteral("PM");
}

QString ShownDate::Day(int size) const {
  if (size < 3) return Padded(m_date.day(), size);
  return NameOf(m_language.dayName(m_date.dayOfWeek(), size == 3 ? QLocale::ShortFormat : QLocale::LongFormat));
}

QString ShownDate::Month(int size) const {
  if (size < 3) return Padded(m_date.month(), size);
  const QString name = m_language.monthName(m_date.month(), size == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
  return size == 5 ? name.left(1) : NameOf(name);
}

// Sheets write short names without the point that some languages have there.
QString ShownDate::NameOf(const QString& name) const {
  return name.endsWith(u'.') ? name.chopped(1) : name;
}

}  // namespace snipdeck

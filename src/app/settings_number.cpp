#include "app/settings_number.h"

namespace snipdeck {

namespace {

// One more decimal digit still fits below this.
constexpr std::int64_t kLimit = (std::numeric_limits<std::int64_t>::max() - 9) / 10;

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

QString WithoutBlanks(QStringView text) {
  QString kept;
  for (const QChar c : text) {
    if (c != u' ' && c != u'\t' && c != u'\n') kept += c;
  }
  return kept;
}

/// Takes the digits at the beginning of `rest` away and returns them.
QStringView TakeDigits(QStringView& rest) {
  qsizetype count = 0;
  while (count < rest.size() && IsDigit(rest[count])) ++count;
  const QStringView digits = rest.first(count);
  rest = rest.sliced(count);
  return digits;
}

/// The digits are compared, not their value as a binary fraction: no number of them is too many.
bool RoundsUp(QStringView fraction, bool wholeIsOdd) {
  if (fraction.isEmpty() || fraction[0] < u'5') return false;
  if (fraction[0] > u'5') return true;
  for (const QChar digit : fraction.sliced(1)) {
    if (digit != u'0') return true;
  }
  return wholeIsOdd;
}

}  // namespace

std::optional<std::int64_t> LeadingWholeNumber(QStringView text) {
  const QString kept = WithoutBlanks(text);
  QStringView rest(kept);
  const bool negative = rest.startsWith(u'-');
  if (negative || rest.startsWith(u'+')) rest = rest.sliced(1);
  std::int64_t whole = 0;
  for (const QChar digit : TakeDigits(rest)) {
    if (whole > kLimit) return {};
    whole = whole * 10 + digit.digitValue();
  }
  if (rest.startsWith(u'.')) {
    rest = rest.sliced(1);
    if (RoundsUp(TakeDigits(rest), whole % 2 != 0)) ++whole;
  }
  return negative ? -whole : whole;
}

}  // namespace snipdeck

#include "editor/typographic_quotes.h"

#include <string_view>

namespace snipdeck {

namespace {

constexpr char16_t kApostrophe = u'\'';
constexpr char16_t kDoubleQuote = u'"';
constexpr char16_t kOpeningSingle = u'\u2018';
constexpr char16_t kClosingSingle = u'\u2019';
constexpr char16_t kOpeningDouble = u'\u201C';
constexpr char16_t kClosingDouble = u'\u201D';

constexpr std::u16string_view kBeforeOpeningMark = u" ([\t\n\f\r";

bool OpensBehind(char16_t before, char16_t otherStraight, char16_t otherOpening) {
  return before == 0 || before == otherStraight || before == otherOpening ||
         kBeforeOpeningMark.find(before) != std::u16string_view::npos;
}

}  // namespace

char16_t TypographicMark(char16_t typed, char16_t before) {
  if (typed == kApostrophe) return OpensBehind(before, kDoubleQuote, kOpeningDouble) ? kOpeningSingle : kClosingSingle;
  if (typed == kDoubleQuote) return OpensBehind(before, kApostrophe, kOpeningSingle) ? kOpeningDouble : kClosingDouble;
  return 0;
}

QString WithTypographicMarks(QString text, char16_t before) {
  for (QChar& c : text) {
    if (const char16_t mark = TypographicMark(c.unicode(), before)) c = QChar(mark);
    before = c.unicode();
  }
  return text;
}

}  // namespace snipdeck

#include "richtext/html/html_entities.h"

#include <algorithm>

#include <QHash>

#include "richtext/html/html_entity_names.h"

namespace snipdeck {
namespace {

constexpr qsizetype kLongestName = 31;
constexpr qsizetype kShortestName = 2;
constexpr char32_t kLastCharacter = 0x10FFFF;

struct Named {
  QString characters;
  bool needsNoSemicolon = false;
};

QHash<QString, Named> ReadNames() {
  QHash<QString, Named> names;
  const QString list = QString::fromLatin1(kHtmlEntityNames);
  for (const QStringView entry : QStringView(list).split(u' ', Qt::SkipEmptyParts)) {
    const bool needsNoSemicolon = entry[0] == u'!';
    const qsizetype equals = entry.indexOf(u'=');
    Named named{{}, needsNoSemicolon};
    for (const QStringView number : entry.mid(equals + 1).split(u'+')) {
      const char32_t character = number.toUInt(nullptr, 16);
      named.characters += QString::fromUcs4(&character, 1);
    }
    names.insert(entry.mid(needsNoSemicolon, equals - needsNoSemicolon).toString(), named);
  }
  return names;
}

const QHash<QString, Named>& Names() {
  static const QHash<QString, Named> kNames = ReadNames();
  return kNames;
}

bool IsNameCharacter(QChar character) {
  return (character >= u'0' && character <= u'9') || (character >= u'a' && character <= u'z') ||
         (character >= u'A' && character <= u'Z');
}

/// Pages say the numbers of windows-1252 and mean its characters.
char32_t MeantBy(char32_t number) {
  static constexpr char16_t kWindows[] =
      u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
      u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
  return number >= 0x80 && number < 0xA0 ? kWindows[number - 0x80] : number;
}

bool IsCharacter(char32_t number) {
  return number > 0 && number <= kLastCharacter && (number < 0xD800 || number > 0xDFFF);
}

int DigitValue(QChar digit, int base) {
  if (digit >= u'0' && digit <= u'9') return digit.unicode() - u'0';
  const char16_t lower = digit.unicode() | 0x20;
  return base == 16 && lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// Reads what stands behind an ampersand; 0 when that is no entity, else the number of characters it takes.
qsizetype ReadNumber(QStringView text, QString& out) {
  if (!text.startsWith(u'#')) return 0;
  const bool isHexadecimal = text.size() > 1 && (text[1] == u'x' || text[1] == u'X');
  const int base = isHexadecimal ? 16 : 10;
  const qsizetype begin = isHexadecimal ? 2 : 1;
  qsizetype end = begin;
  char32_t number = 0;
  for (; end < text.size() && DigitValue(text[end], base) >= 0; ++end) {
    const auto digit = static_cast<char32_t>(DigitValue(text[end], base));
    number = std::min<char32_t>(number * static_cast<char32_t>(base) + digit, kLastCharacter + 1);
  }
  if (end == begin) return 0;
  number = MeantBy(number);
  if (IsCharacter(number)) out += QString::fromUcs4(&number, 1);
  return end + (end < text.size() && text[end] == u';');
}

qsizetype ReadName(QStringView text, EntityPlace place, QString& out) {
  qsizetype length = 0;
  while (length < text.size() && length <= kLongestName && IsNameCharacter(text[length])) ++length;
  if (length < text.size() && text[length] == u';') {
    const auto named = Names().constFind(text.first(length).toString());
    if (named != Names().cend()) {
      out += named->characters;
      return length + 1;
    }
  }
  constexpr qsizetype kLongestWithout = 6;
  for (qsizetype part = std::min(length, kLongestWithout); part >= kShortestName; --part) {
    const auto named = Names().constFind(text.first(part).toString());
    if (named == Names().cend() || !named->needsNoSemicolon) continue;
    const bool goesOn = part < text.size() && (text[part] == u'=' || IsNameCharacter(text[part]));
    if (goesOn && place == EntityPlace::Attribute) return 0;
    out += named->characters;
    return part;
  }
  return 0;
}

}  // namespace

QString DecodeEntities(QStringView text, EntityPlace place) {
  qsizetype ampersand = text.indexOf(u'&');
  if (ampersand < 0) return text.toString();
  QString decoded;
  decoded.reserve(text.size());
  qsizetype at = 0;
  for (; ampersand >= 0; ampersand = text.indexOf(u'&', at)) {
    decoded += text.mid(at, ampersand - at);
    const QStringView rest = text.mid(ampersand + 1);
    qsizetype taken = ReadNumber(rest, decoded);
    if (taken == 0) taken = ReadName(rest, place, decoded);
    if (taken == 0) decoded += u'&';
    at = ampersand + 1 + taken;
  }
  return decoded += text.mid(at);
}

QString EscapeText(QString text) {
  return text.replace(u'&', QLatin1String("&amp;")).replace(u'<', QLatin1String("&lt;"));
}

}  // namespace snipdeck

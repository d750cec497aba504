#include "richtext/html/html_attributes.h"

#include <algorithm>

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

namespace snipdeck {
namespace {

constexpr char kListStartMark[] = "start:";

/// A link may lead to the web, to mail or to a place in the text, and never into a program.
bool IsHarmlessLink(const QString& target) {
  if (target == QLatin1String("#")) return false;  // leads nowhere
  static const QRegularExpression kScheme(QStringLiteral("^\\s*(https?|ftps?|mailto|tel|news|file)\\s*:"),
                                          QRegularExpression::CaseInsensitiveOption);
  const qsizetype colon = target.indexOf(u':');
  const qsizetype path = target.indexOf(QRegularExpression(QStringLiteral("[/?#]")));
  const bool isRelative = colon < 0 || (path >= 0 && path < colon);
  return isRelative || kScheme.match(target).hasMatch();
}

/// A size of a font element: 1 to 7, or steps up or down from 3; empty for anything else.
QString FontElementSize(const QString& value) {
  constexpr int kMedium = 3;
  static const QStringList kNames = {"x-small", "small", "medium", "large", "x-large", "xx-large", "xxx-large"};
  const QString trimmed = value.trimmed();
  bool isNumber = false;
  const int number = trimmed.toInt(&isNumber);
  if (!isNumber) return {};
  const bool isStep = trimmed.startsWith(u'+') || trimmed.startsWith(u'-');
  const int size = std::clamp(isStep ? kMedium + std::clamp(number, -7, 7) : number, 1, 7);
  return QLatin1String("font-size:") + kNames[size - 1] + u';';
}

QString ListStartStyle(int start) {
  return QStringLiteral("-qt-list-number-prefix:'%1%2';").arg(QLatin1String(kListStartMark)).arg(start);
}

/// What an element means without saying so in a style, as declarations.
QString ImpliedStyle(const HtmlToken& token) {
  static const QHash<QString, QString> kStyles = {
      {"big", "font-size:larger"},      {"small", "font-size:smaller"},
      {"address", "font-style:italic"}, {"mark", "background-color:#ffff00"},
      {"pre", "white-space:pre"},       {"xmp", "white-space:pre"},
      {"listing", "white-space:pre"},   {"h1", "font-size:2em"},
      {"h2", "font-size:1.5em"},        {"h3", "font-size:1.17em"},
      {"h4", "font-size:1em"},          {"h5", "font-size:0.83em"},
      {"h6", "font-size:0.67em"}};
  if (token.name != QLatin1String("font")) return kStyles.value(token.name);
  const QString face = ValueOf(token, "face").remove(u';');
  const QString colour = ValueOf(token, "color").remove(u';');
  QString css = FontElementSize(ValueOf(token, "size"));
  if (!face.isEmpty()) css += QLatin1String("font-family:") + face + u';';
  if (!colour.isEmpty()) css += QLatin1String("color:") + colour + u';';
  return css;
}

bool IsSensibleNumber(const HtmlAttribute& attribute) {
  static const QSet<QString> kNumbers = {"border", "cellpadding", "cellspacing", "width", "height"};
  if (!kNumbers.contains(attribute.name)) return true;
  QString digits = attribute.value.trimmed();
  if (digits.endsWith(u'%')) digits.chop(1);
  bool isNumber = false;
  const double number = digits.remove(QLatin1String("px")).toDouble(&isNumber);
  return isNumber && number >= 0 && number <= 10000;
}

}  // namespace

QString Quoted(QString value) {
  return u'"' + value.replace(u'&', QLatin1String("&amp;")).replace(u'"', QLatin1String("&quot;")) + u'"';
}

/// Some writers put a picture's address in the place of words that could stand for it.
bool IsAddress(const QString& alternative) {
  static const QRegularExpression kAddress(QStringLiteral("^\\s*\\w+:(//)?[^\\s]*[./@][^\\s]*\\s*$"));
  return kAddress.match(alternative).hasMatch();
}

QString ValueOf(const HtmlToken& token, const char* name) {
  for (const HtmlAttribute& attribute : token.attributes) {
    if (attribute.name == QLatin1String(name)) return attribute.value;
  }
  return {};
}

QString PictureSize(const HtmlToken& token) {
  QString size;
  for (const char* side : {"width", "height"}) {
    const int pixels = ValueOf(token, side).remove(QLatin1String("px")).toInt();
    if (pixels > 0 && pixels < 10000) size += QStringLiteral(" %1=\"%2\"").arg(QLatin1String(side)).arg(pixels);
  }
  return size;
}

int ListStartOf(const HtmlToken& list) {
  bool isNumber = false;
  const int start = ValueOf(list, "start").trimmed().toInt(&isNumber);
  return isNumber ? std::clamp(start, 0, kMaxListStart) : 1;
}

int ListStartIn(const QString& numberPrefix) {
  const QLatin1String mark(kListStartMark);
  return numberPrefix.startsWith(mark) ? numberPrefix.mid(mark.size()).toInt() : 1;
}

QString WithListStart(QString startTag, int start) {
  static const QRegularExpression kStart(QLatin1String(kListStartMark) + QStringLiteral("\\d+"));
  return startTag.replace(kStart, QLatin1String(kListStartMark) + QString::number(std::clamp(start, 0, kMaxListStart)));
}

namespace {

/// A link, from the place it was copied from.
QString Resolved(const QString& target, const QUrl& base) {
  const QUrl url(target.trimmed());
  const bool isElsewhere = url.isValid() && url.isRelative() && !target.startsWith(u'#');
  return base.isValid() && isElsewhere ? base.resolved(url).toString(QUrl::FullyEncoded) : target;
}

QString KeptAttribute(const QString& element, const HtmlAttribute& attribute, const QUrl& base) {
  static const QSet<QString> kKept = {"align",       "valign", "bgcolor", "dir",  "border", "cellpadding",
                                      "cellspacing", "width",  "height",  "type", "name"};
  if (attribute.value.isEmpty() || attribute.value.size() > 2000 || element == QLatin1String("font")) return {};
  if (attribute.name == QLatin1String("href")) {
    const QString target = Resolved(attribute.value, base);
    return element == QLatin1String("a") && IsHarmlessLink(target) ? QLatin1String(" href=") + Quoted(target) : QString();
  }
  if (!kKept.contains(attribute.name) || !IsSensibleNumber(attribute)) return {};
  return u' ' + attribute.name + u'=' + Quoted(attribute.value);
}

}  // namespace

QString KeptAttributes(const HtmlToken& token, const QList<CssDeclaration>& rules, const QUrl& base, TextStyle& style) {
  QList<CssDeclaration> declarations = ParseDeclarations(ImpliedStyle(token));
  Override(declarations, rules);
  Override(declarations, ParseDeclarations(ValueOf(token, "style")));
  style.display = TextStyle::Display::AsNamed;
  QString css = FilterDeclarations(declarations, style);
  if (token.name == QLatin1String("ol")) css += ListStartStyle(ListStartOf(token));
  QString attributes;
  for (const HtmlAttribute& attribute : token.attributes) {
    if (attribute.name == QLatin1String("hidden")) style.display = TextStyle::Display::None;
    attributes += KeptAttribute(token.name, attribute, base);
  }
  if (!css.isEmpty()) attributes += QLatin1String(" style=") + Quoted(css.replace(u'"', u'\''));
  return attributes;
}

}  // namespace snipdeck

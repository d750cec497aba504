#include "richtext/html/html_attributes.h"

#include <QRegularExpression>
#include <QSet>

#include "richtext/html/css_filter.h"
#include "richtext/html/html_elements.h"

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
  const bool isRelative = (colon < 0 || (path >= 0 && path < colon)) && !target.contains(QLatin1String("&#"));
  return isRelative || kScheme.match(target).hasMatch();
}

QString Size(double points, double& fontSize) {
  if (points <= 0) return {};
  fontSize = points;
  return QStringLiteral("font-size:%1pt;").arg(points);
}

QString ListStartStyle(int start) {
  return QStringLiteral("-qt-list-number-prefix:'%1%2';").arg(QLatin1String(kListStartMark)).arg(start);
}

QString ImpliedStyle(const HtmlToken& token, double& fontSize) {
  const QString& name = token.name;
  QString css;
  if (name == QLatin1String("font")) {
    const QString face = ValueOf(token, "face");
    if (!face.isEmpty()) css += QLatin1String("font-family:") + QString(face).remove(u';') + u';';
    css += Size(FontElementPoints(ValueOf(token, "size").toInt()), fontSize);
    if (const QString colour = ValueOf(token, "color"); !colour.isEmpty()) {
      css += QLatin1String("color:") + QString(colour).remove(u';') + u';';
    }
    return FilterDeclarations(css, fontSize);
  }
  if (name == QLatin1String("ol")) return ListStartStyle(ListStartOf(token));
  if (name == QLatin1String("big")) return Size(fontSize * 1.2, fontSize);
  if (name == QLatin1String("small")) return Size(fontSize / 1.2, fontSize);
  if (name == QLatin1String("address")) return QStringLiteral("font-style:italic;");
  if (name == QLatin1String("mark")) return QStringLiteral("background-color:#ffff00;");
  if (name.size() == 2 && name[0] == u'h') return Size(HeadingPoints(name[1].digitValue()), fontSize);
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

/// Numeric entities can name what no document may hold.
QString WithoutForbiddenEntities(QStringView text) {
  QString clean = text.toString();
  if (!clean.contains(QLatin1String("&#"))) return clean;
  static const QRegularExpression kForbidden(
      QStringLiteral(
          "&#(?:0*(?:[0-8]|1[124-9]|2\\d|3[01])|x0*(?:[0-8bcef]|1[0-9a-f]|fd[de][0-9a-f]|fff[c-f]|d[89a-f]..)|"
          "0*(?:6497[6-9]|649[89]\\d|6500[0-7]|6553[2-5]|5529[6-9]|55[3-9]\\d\\d|5[67]\\d\\d\\d))(?:;|(?![0-9a-f]))"),
      QRegularExpression::CaseInsensitiveOption);
  return clean.remove(kForbidden);
}

QString Quoted(QString value) {
  return u'"' + value.replace(u'"', QLatin1String("&quot;")) + u'"';
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

QString KeptAttribute(const QString& element, const HtmlAttribute& attribute) {
  static const QSet<QString> kKept = {"class",       "align", "valign", "bgcolor", "dir",  "border", "cellpadding",
                                      "cellspacing", "width", "height", "type",    "name"};
  if (attribute.value.isEmpty() || attribute.value.size() > 2000 || element == QLatin1String("font")) return {};
  if (attribute.name == QLatin1String("href")) {
    return element == QLatin1String("a") && IsHarmlessLink(attribute.value)
               ? QLatin1String(" href=") + Quoted(attribute.value)
               : QString();
  }
  if (!kKept.contains(attribute.name) || !IsSensibleNumber(attribute)) return {};
  return u' ' + attribute.name + u'=' + Quoted(attribute.value);
}

}  // namespace

QString KeptAttributes(const HtmlToken& token, double& fontSize) {
  QString css = ImpliedStyle(token, fontSize);
  css += FilterDeclarations(ValueOf(token, "style").replace(QLatin1String("&quot;"), QLatin1String("'")), fontSize);
  QString attributes;
  for (const HtmlAttribute& attribute : token.attributes) attributes += KeptAttribute(token.name, attribute);
  if (!css.isEmpty()) attributes += QLatin1String(" style=") + Quoted(css);
  return attributes;
}

}  // namespace snipdeck

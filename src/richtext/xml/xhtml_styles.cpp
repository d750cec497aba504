#include "richtext/xml/xhtml_styles.h"

#include <QRegularExpression>

namespace snipdeck {
namespace {

QString Unescaped(QString text) {
  return text.replace(QLatin1String("&quot;"), QLatin1String("\""))
      .replace(QLatin1String("&lt;"), QLatin1String("<"))
      .replace(QLatin1String("&gt;"), QLatin1String(">"))
      .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

}  // namespace

QString XhtmlStyles::Classify(const QString& html) {
  static const QRegularExpression kStyled(
      QStringLiteral("<(p|li|h[1-6]|span)((?: dir=\"rtl\")?) style=\"([^\"]+)\""));
  QString classified;
  classified.reserve(html.size() + html.size() / 8);
  qsizetype at = 0;
  for (auto it = kStyled.globalMatch(html); it.hasNext();) {
    const QRegularExpressionMatch match = it.next();
    const QString element = match.captured(1), style = match.captured(3);
    classified += QStringView(html).mid(at, match.capturedStart() - at);
    classified += QLatin1Char('<') + element + match.captured(2) + QLatin1String(" class=\"") +
                  ClassOf(element, style) + QLatin1String("\" style=\"") + style + QLatin1Char('"');
    at = match.capturedEnd();
  }
  classified += QStringView(html).mid(at);
  return classified;
}

QString XhtmlStyles::ClassOf(const QString& element, const QString& style) {
  const bool isRun = element == QLatin1String("span");
  const QString key = (isRun ? u'c' : u'p') + style;
  const auto known = m_classes.constFind(key);
  if (known != m_classes.cend()) return *known;
  const QString name =
      isRun ? QLatin1Char('c') + QString::number(++m_runs) : QLatin1Char('p') + QString::number(++m_paragraphs);
  QString declarations = Unescaped(style).trimmed();
  declarations.replace(QLatin1Char(';'), QLatin1String(";\n  "));
  m_rules.append(QLatin1Char('.') + name + QLatin1String(" {\n  ") + declarations.trimmed() + QLatin1String("\n}\n"));
  return *m_classes.insert(key, name);
}

QString XhtmlStyles::Sheet() const {
  return m_rules.join(QString());
}

}  // namespace snipdeck

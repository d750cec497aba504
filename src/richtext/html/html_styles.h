#pragma once

#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>

namespace snipdeck {

/// The format as declarations of CSS, "name:value;" one after the other, with the quotation marks that an attribute in
/// double quotes allows. Empty when the format says nothing.
QString CssForCharacters(const QTextCharFormat& format);
QString CssForParagraph(const QTextBlockFormat& format);

/// Text as HTML shows it: the four special characters escaped.
QString EscapeHtml(QStringView text);

}  // namespace snipdeck

#pragma once

#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextTableCellFormat>

namespace snipdeck {

/// The format as declarations of CSS, "name:value;" one after the other, with the quotation marks that an attribute in
/// double quotes allows. Empty when the format says nothing.
QString CssForCharacters(const QTextCharFormat& format);
QString CssForParagraph(const QTextBlockFormat& format);
/// The lines and the padding that are the cell's own; its background and spans are attributes.
QString CssForCell(const QTextTableCellFormat& format);

/// Text as HTML shows it: the four special characters escaped.
QString EscapeHtml(QStringView text);

}  // namespace snipdeck

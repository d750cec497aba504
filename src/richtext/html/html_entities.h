#pragma once

#include <QString>

namespace snipdeck {

/// Where a text with entities stands. In the value of an attribute, a name without its semicolon stays as it is when
/// "=", a letter or a digit follows, since the addresses of pages are full of such.
enum class EntityPlace { Text, Attribute };

/// The text with its entities, by number or by name, as characters. Numbers that are no character are left out.
QString DecodeEntities(QStringView text, EntityPlace place);

/// Text as it stands in HTML between tags.
QString EscapeText(QString text);

}  // namespace snipdeck

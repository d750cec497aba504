#pragma once

#include <QString>

#include "richtext/html/html_tokenizer.h"

namespace snipdeck {

/// Without the numeric entities that name what no document may hold.
QString WithoutForbiddenEntities(QStringView text);
QString Quoted(QString value);
/// The value of an attribute; empty when the tag has none of that name.
QString ValueOf(const HtmlToken& token, const char* name);
/// Whether words that are to stand for a picture are only its address.
bool IsAddress(const QString& alternative);
/// Width and height of a picture, as attributes.
QString PictureSize(const HtmlToken& token);

inline constexpr int kMaxListStart = 1'000'000;
/// The number of a numbered list's first item.
int ListStartOf(const HtmlToken& list);

/// Qt's importer does not know where a list begins to count, but keeps what stands before its numbers: the start tag of
/// every numbered list says it there.
int ListStartIn(const QString& numberPrefix);
/// The start tag of a numbered list, with another start.
QString WithListStart(QString startTag, int start);

/// Of an element's attributes, those that are harmless and that Qt understands, as they are to be written, with a style for
/// what the element itself means; the spans of cells are not among them. `fontSize` is the surrounding text's in points, and
/// then the element's.
QString KeptAttributes(const HtmlToken& token, double& fontSize);

}  // namespace snipdeck

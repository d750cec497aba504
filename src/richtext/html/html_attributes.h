#pragma once

#include <QString>
#include <QUrl>

#include "richtext/html/css_filter.h"
#include "richtext/html/html_tokenizer.h"

namespace snipdeck {

/// A value as it stands in a tag.
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

/// Of an element's attributes, those that are harmless and that Qt understands, as they are to be written, with a style
/// for what the element itself means, what the rules of style sheets say and what it says itself; the spans of cells
/// are not among them. Links lead on from `base`, where that is known. `style` is the surrounding text's and then the
/// element's.
QString KeptAttributes(const HtmlToken& token, const QList<CssDeclaration>& rules, const QUrl& base, TextStyle& style);

}  // namespace snipdeck

#pragma once

#include "platform/page_geometry.h"

class QTextDocument;

namespace snipdeck {

/// The page of a text: what it does not say about itself comes from PageGeometry's defaults. Sizes and margins that leave
/// no room for text, as only a damaged file names them, are widened.
PageGeometry PageOf(const QTextDocument& document);
/// Makes it the document's page, as one undo step; writers save it with the text.
void SetPageOf(QTextDocument& document, const PageGeometry& page);

}  // namespace snipdeck

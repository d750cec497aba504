#pragma once

#include <QString>

#include "platform/page_geometry.h"

class QTextDocument;
class QTextFrameFormat;

namespace snipdeck {

/// The page of a text: what it does not say about itself comes from PageGeometry's defaults. Sizes and margins that leave
/// no room for text, as only a damaged file names them, are widened.
PageGeometry PageOf(const QTextDocument& document);
/// Makes it the document's page, as one undo step; writers save it with the text.
void SetPageOf(QTextDocument& document, const PageGeometry& page);

/// What stands above and below the text on each page, paragraphs parted by "\n"; empty for nothing. Writers save it with
/// the text, and it is shown nowhere.
struct PageTexts {
  QString header;
  QString footer;

  bool operator==(const PageTexts&) const = default;
};

/// From and into the format of a document's root frame, or the page that a reader names.
PageTexts PageTextsOf(const QTextFrameFormat& page);
void SetPageTexts(QTextFrameFormat& page, const PageTexts& texts);

}  // namespace snipdeck

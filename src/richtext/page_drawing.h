#pragma once

#include <QAbstractTextDocumentLayout>

class QPainter;
class QTextDocument;

namespace snipdeck {

/// Draws a page of a document that is laid out in pages by Qt: what `context.clip` shows, whose upper edge is the page's.
/// Qt alone draws, of a paragraph that comes from the page before, a line of that page too: the clipping hides it from the
/// eye, but not from who searches in the printed file. Selections are not drawn. `withMarks` draws what Qt's
/// layout leaves out of paragraphs (paragraph_marks.h).
void DrawPage(QTextDocument& document, QPainter& painter, const QAbstractTextDocumentLayout::PaintContext& context,
              bool withMarks);

}  // namespace snipdeck

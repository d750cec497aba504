#pragma once

#include <QAbstractTextDocumentLayout>

class QPainter;

namespace snipdeck {

/// Draws a paragraph whose lines are placed: background, list marker, text with selections, rule, caret.
void PaintParagraph(QPainter& painter, const QTextBlock& block,
                    const QAbstractTextDocumentLayout::PaintContext& context, int caretWidth);

}  // namespace snipdeck

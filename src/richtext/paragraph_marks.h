#pragma once

#include <QPalette>
#include <QTextBlock>

class QPainter;

namespace snipdeck {

/// What Qt's layout leaves out of a paragraph: labels of lists that it cannot count, borders, and what leads to
/// tab stops. Everything takes the
/// room that Qt left to the paragraph.

/// The label beside the first line, a blank's width away from its text. `origin` is where the paragraph's layout stands.
void PaintLabel(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QString& label,
                const QPalette& palette);

/// The borders alone, where the paragraph has some.
void PaintBorders(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QPalette& palette);

/// All of it, for one paragraph that has been placed.
void PaintMarks(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QPalette& palette);

/// All of it, for the paragraphs of `document` that `clip` shows; the document has a layout of Qt's and has been drawn.
void PaintMarks(QPainter& painter, const QTextDocument& document, const QRectF& clip, const QPalette& palette);

}  // namespace snipdeck

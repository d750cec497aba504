#include "platform/qt/layout/paragraph_painter.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>

#include "richtext/list_labels.h"
#include "richtext/paragraph_marks.h"

namespace snipdeck {

namespace {

using PaintContext = QAbstractTextDocumentLayout::PaintContext;
using Selection = QAbstractTextDocumentLayout::Selection;

/// The part of `selection` that lies in `block`; length 0 where there is none.
QTextLayout::FormatRange RangeIn(const QTextBlock& block, const Selection& selection) {
  QTextLayout::FormatRange range{0, 0, selection.format};
  const int from = selection.cursor.selectionStart() - block.position();
  const int to = selection.cursor.selectionEnd() - block.position();
  const bool wholeLine = selection.format.hasProperty(QTextFormat::FullWidthSelection);
  if (from < to && from < block.length() && to > 0) {
    range.start = from;
    range.length = to - from;
  } else if (from == to && wholeLine && block.contains(selection.cursor.position())) {
    const QTextLine line = block.layout()->lineForTextPosition(from);
    const bool isLast = line.textStart() + line.textLength() == block.length() - 1;
    range.start = line.textStart();
    range.length = line.textLength() + (isLast ? 1 : 0);
  }
  return range;
}

QList<QTextLayout::FormatRange> SelectionsIn(const QTextBlock& block, const PaintContext& context) {
  QList<QTextLayout::FormatRange> ranges;
  for (const Selection& selection : context.selections) {
    const QTextLayout::FormatRange range = RangeIn(block, selection);
    if (range.length > 0) ranges.append(range);
  }
  return ranges;
}

void PaintBullet(QPainter& painter, const QTextBlock& block, QTextListFormat::Style style, const QBrush& ink) {
  const QAbstractTextDocumentLayout& whole = *block.document()->documentLayout();
  QFont font = QTextCursor(block).charFormat().font().resolve(block.document()->defaultFont());
  if (whole.paintDevice()) font = QFont(font, whole.paintDevice());
  const QFontMetrics metrics(font);
  // On whole pixels, as Qt's layout puts it.
  const QRectF text = block.layout()->lineAt(0).naturalTextRect();
  const QPoint start = block.layout()->position().toPoint() + text.topLeft().toPoint();
  const int size = metrics.lineSpacing() / 3;
  const int blank = metrics.horizontalAdvance(u' ');
  const double left =
      block.textDirection() == Qt::LeftToRight ? start.x() - blank - size : start.x() + text.width() + blank;
  const QRectF place(left, start.y() + metrics.height() / 2 - size / 2.0, size, size);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(style == QTextListFormat::ListCircle ? QPen(ink, 0) : QPen(Qt::NoPen));
  painter.setBrush(style == QTextListFormat::ListCircle ? QBrush(Qt::NoBrush) : ink);
  if (style == QTextListFormat::ListSquare) painter.fillRect(place, ink);
  if (style == QTextListFormat::ListDisc) painter.drawEllipse(place);
  if (style == QTextListFormat::ListCircle) painter.drawEllipse(place.translated(0.5, 0.5));
  painter.restore();
}

/// Of the markers, those that Qt's layout draws.
void PaintMarker(QPainter& painter, const QTextBlock& block, const PaintContext& context) {
  const QTextList* const list = block.textList();
  if (!list || block.layout()->lineCount() == 0 || IsLabelTakenFromQt(block)) return;
  const QTextListFormat format = list->format();
  if (format.style() == QTextListFormat::ListStyleUndefined) return;
  if (IsBullet(format)) return PaintBullet(painter, block, format.style(), context.palette.text());
  PaintLabel(painter, block, block.layout()->position(), list->itemText(block), context.palette);
}

void PaintRule(QPainter& painter, const QTextBlock& block, const PaintContext& context, const QRectF& place) {
  const QTextBlockFormat format = block.blockFormat();
  if (!format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth)) return;
  const double width = format.lengthProperty(QTextFormat::BlockTrailingHorizontalRulerWidth).value(place.width());
  const double y = block.length() == 1 ? place.center().y() : place.bottom();
  painter.setPen(context.palette.color(QPalette::Dark));
  painter.drawLine(QLineF(place.center().x() - width / 2, y, place.center().x() + width / 2, y));
}

void PaintCaret(QPainter& painter, const QTextBlock& block, const PaintContext& context, int caretWidth) {
  const QTextLayout& layout = *block.layout();
  // Below -1 the caret stands in text that an input method is still composing.
  const bool composing = context.cursorPosition < -1 && !layout.preeditAreaText().isEmpty();
  if (!composing && !block.contains(context.cursorPosition)) return;
  const int position = composing ? layout.preeditAreaPosition() - (context.cursorPosition + 2)
                                 : context.cursorPosition - block.position();
  layout.drawCursor(&painter, QPointF(), position, caretWidth);
}

}  // namespace

void PaintParagraph(QPainter& painter, const QTextBlock& block, const PaintContext& context, int caretWidth) {
  const QTextLayout& layout = *block.layout();
  const QRectF place = layout.boundingRect().translated(layout.position());
  const QBrush ground = block.blockFormat().background();
  if (ground.style() != Qt::NoBrush) painter.fillRect(place, ground);
  PaintMarker(painter, block, context);
  PaintMarks(painter, block, layout.position(), context.palette);
  const QPen pen = painter.pen();
  painter.setPen(context.palette.color(QPalette::Text));
  layout.draw(&painter, QPointF(), SelectionsIn(block, context), context.clip);
  PaintCaret(painter, block, context, caretWidth);
  PaintRule(painter, block, context, place);
  painter.setPen(pen);
}

}  // namespace snipdeck

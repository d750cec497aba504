#include "platform/qt/layout/paragraph_painter.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>

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

int MarkerStyle(const QTextBlock& block, const QTextList& list) {
  const QTextBlockFormat format = block.blockFormat();
  return format.hasProperty(QTextFormat::ListStyle) ? format.intProperty(QTextFormat::ListStyle)
                                                    : list.format().style();
}

bool IsBullet(int style) {
  return style == QTextListFormat::ListDisc || style == QTextListFormat::ListCircle ||
         style == QTextListFormat::ListSquare;
}

void PaintBullet(QPainter& painter, int style, const QRectF& place, const QBrush& ink) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(style == QTextListFormat::ListCircle ? QPen(ink, 0) : QPen(Qt::NoPen));
  painter.setBrush(style == QTextListFormat::ListCircle ? QBrush(Qt::NoBrush) : ink);
  if (style == QTextListFormat::ListSquare) painter.fillRect(place, ink);
  if (style == QTextListFormat::ListDisc) painter.drawEllipse(place);
  if (style == QTextListFormat::ListCircle) painter.drawEllipse(place.translated(0.5, 0.5));
}

/// Beside the first line, a blank's width away from its text.
void PaintMarker(QPainter& painter, const QTextBlock& block, const PaintContext& context) {
  const QTextList* const list = block.textList();
  if (!list || block.layout()->lineCount() == 0) return;
  const int style = MarkerStyle(block, *list);
  if (style == QTextListFormat::ListStyleUndefined) return;

  const QAbstractTextDocumentLayout& whole = *block.document()->documentLayout();
  const QTextCharFormat format = QTextCursor(block).charFormat();
  QFont font = format.font().resolve(block.document()->defaultFont());
  if (whole.paintDevice()) font = QFont(font, whole.paintDevice());
  const QFontMetrics metrics(font);
  const QString label = IsBullet(style) ? QString() : list->itemText(block);
  const int bullet = metrics.lineSpacing() / 3;
  const int width = IsBullet(style) ? bullet : metrics.horizontalAdvance(label);

  // On whole pixels, as Qt's layout puts it.
  const QTextLine line = block.layout()->lineAt(0);
  const QRectF text = line.naturalTextRect();
  const QPoint start = block.layout()->position().toPoint() + text.topLeft().toPoint();
  const int blank = metrics.horizontalAdvance(u' ');
  const double left =
      block.textDirection() == Qt::LeftToRight ? start.x() - blank - width : start.x() + text.width() + blank;
  painter.save();
  if (IsBullet(style)) {
    const double top = start.y() + metrics.height() / 2 - bullet / 2.0;
    PaintBullet(painter, style, QRectF(left, top, bullet, bullet), context.palette.text());
  } else {
    const QBrush ink = format.foreground();
    painter.setFont(font);
    painter.setPen(QPen(ink.style() == Qt::NoBrush ? context.palette.text() : ink, 0));
    painter.drawText(QPointF(left, start.y() + line.ascent()), label);
  }
  painter.restore();
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
  const QPen pen = painter.pen();
  painter.setPen(context.palette.color(QPalette::Text));
  layout.draw(&painter, QPointF(), SelectionsIn(block, context), context.clip);
  PaintCaret(painter, block, context, caretWidth);
  PaintRule(painter, block, context, place);
  painter.setPen(pen);
}

}  // namespace snipdeck

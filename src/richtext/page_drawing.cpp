#include "richtext/page_drawing.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>

#include "richtext/paragraph_marks.h"

namespace snipdeck {
namespace {

using PaintContext = QAbstractTextDocumentLayout::PaintContext;

QRectF PlaceOf(const QTextBlock& block) {
  return block.document()->documentLayout()->blockBoundingRect(block);
}

// A line may stand a little above its page, but not its base line.
bool BeginsBelow(const QTextBlock& block, const QTextLine& line, double y) {
  return PlaceOf(block).top() + line.y() + line.ascent() > y;
}

bool Crosses(const QTextBlock& block, double y) {
  const QTextLayout& layout = *block.layout();
  const int lines = layout.lineCount();
  return lines > 1 && !BeginsBelow(block, layout.lineAt(0), y) && BeginsBelow(block, layout.lineAt(lines - 1), y);
}

QTextTable* OutermostTable(QTextDocument& document, int position) {
  QTextTable* outermost = nullptr;
  for (QTextFrame* frame = document.frameAt(position); frame; frame = frame->parentFrame()) {
    if (auto* const table = qobject_cast<QTextTable*>(frame)) outermost = table;
  }
  return outermost;
}

void AddCrossing(QTextDocument& document, int first, int last, double y, QList<QTextBlock>& found) {
  for (QTextBlock block = document.findBlock(first); block.isValid() && block.position() <= last; block = block.next()) {
    if (Crosses(block, y)) found.append(block);
  }
}

/// In a table each cell of the row may have one.
QList<QTextBlock> ParagraphsAcross(QTextDocument& document, double y) {
  const int hit = document.documentLayout()->hitTest(QPointF(0, y), Qt::FuzzyHit);
  QList<QTextBlock> found;
  QTextTable* const table = OutermostTable(document, hit);
  if (!table) {
    AddCrossing(document, hit, hit, y, found);
    return found;
  }
  const int row = table->cellAt(hit).row();
  for (int column = 0; column < table->columns(); ++column) {
    const QTextTableCell cell = table->cellAt(row, column);
    if (cell.column() == column) AddCrossing(document, cell.firstPosition(), cell.lastPosition(), y, found);
  }
  return found;
}

void DrawLinesBelow(const QTextBlock& block, double y, QPainter& painter, const PaintContext& context) {
  const QRectF place = PlaceOf(block);
  const QBrush ground = block.blockFormat().background();
  if (ground.style() != Qt::NoBrush) painter.fillRect(place.intersected(context.clip), ground);
  PaintBorders(painter, block, place.topLeft(), context.palette);
  painter.setPen(context.palette.color(QPalette::Text));
  for (int i = 0; i < block.layout()->lineCount(); ++i) {
    const QTextLine line = block.layout()->lineAt(i);
    const bool isShown = BeginsBelow(block, line, y) && place.top() + line.y() < context.clip.bottom();
    if (isShown) line.draw(&painter, place.topLeft());
  }
}

void SetVisible(QList<QTextBlock>& blocks, bool isVisible) {
  for (QTextBlock& block : blocks) block.setVisible(isVisible);
}

}  // namespace

void DrawPage(QTextDocument& document, QPainter& painter, const PaintContext& context, bool withMarks) {
  QAbstractTextDocumentLayout& layout = *document.documentLayout();
  const double top = context.clip.top();
  layout.pageCount();  // places all of it: hidden paragraphs would get no room
  QList<QTextBlock> across = ParagraphsAcross(document, top);
  SetVisible(across, false);
  layout.draw(&painter, context);
  if (withMarks) PaintMarks(painter, document, context.clip, context.palette);
  SetVisible(across, true);
  const QPen pen = painter.pen();
  for (const QTextBlock& block : std::as_const(across)) DrawLinesBelow(block, top, painter, context);
  painter.setPen(pen);
}

}  // namespace snipdeck

#include "richtext/paragraph_marks.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>

#include "platform/units.h"
#include "richtext/format_properties.h"
#include "richtext/list_labels.h"
#include "richtext/paragraph_borders.h"
#include "richtext/tab_leaders.h"

namespace snipdeck {
namespace {

constexpr double kTwipsPerInch = 1440;

Qt::PenStyle PenStyleOf(QTextFrameFormat::BorderStyle style) {
  switch (style) {
    case QTextFrameFormat::BorderStyle_Dotted:
      return Qt::DotLine;
    case QTextFrameFormat::BorderStyle_Dashed:
      return Qt::DashLine;
    case QTextFrameFormat::BorderStyle_DotDash:
      return Qt::DashDotLine;
    case QTextFrameFormat::BorderStyle_DotDotDash:
      return Qt::DashDotDotLine;
    default:
      return Qt::SolidLine;
  }
}

double DotsPerTwip(const QTextDocument& document) {
  const QPaintDevice* const device = document.documentLayout()->paintDevice();
  return (device ? device->logicalDpiY() : 96) / kTwipsPerInch;
}

/// Whether the border goes on in the paragraph beside: theirs are then one border around both.
bool SharesBorder(const QTextBlock& block, const QTextBlock& beside) {
  const QTextBlockFormat one = block.blockFormat();
  const QTextBlockFormat other = beside.blockFormat();
  return beside.isValid() && one.stringProperty(kParagraphBorder) == other.stringProperty(kParagraphBorder) &&
         one.leftMargin() == other.leftMargin() && one.rightMargin() == other.rightMargin();
}

/// Pixels to the next paragraph: the spaces of two paragraphs are not added up.
double SpaceBelow(const QTextBlock& block) {
  return std::max(block.next().blockFormat().topMargin(), block.blockFormat().bottomMargin());
}

class BorderPainter {
 public:
  BorderPainter(QPainter& painter, double dotsPerTwip, const QColor& textColour)
      : m_painter(painter), m_dots(dotsPerTwip), m_textColour(textColour) {}

  /// A line along one side of `text`, outside of it by the line's distance; `outwards` is a unit vector.
  void Paint(const BorderLine& line, const QLineF& side, const QPointF& outwards) const {
    if (line.width <= 0) return;
    const double width = std::max(line.width * m_dots, 1.0);
    const bool isDouble = line.style == QTextFrameFormat::BorderStyle_Double;
    m_painter.setPen(QPen(line.colour.isValid() ? line.colour : m_textColour, width, PenStyleOf(line.style), Qt::FlatCap));
    const QLineF shown = side.translated(outwards * (line.space * m_dots + width / 2));
    m_painter.drawLine(shown);
    if (isDouble) m_painter.drawLine(shown.translated(outwards * 2 * width));
  }

 private:
  QPainter& m_painter;
  const double m_dots;
  const QColor m_textColour;
};

bool HasMarks(const QTextBlock& block) {
  return IsLabelTakenFromQt(block) || block.blockFormat().hasProperty(kParagraphBorder) || HasLeaders(block);
}

struct Stretch {
  int begin;
  int end;
};

/// The paragraph at `position`; in a table, all cells that touch its row; in a frame, all of it.
Stretch Surroundings(const QTextDocument& document, int position) {
  const QTextFrame* frame = document.frameAt(position);
  while (frame && frame->parentFrame() && frame->parentFrame()->parentFrame()) frame = frame->parentFrame();
  if (!frame || !frame->parentFrame()) return {position, position};
  const auto* const table = qobject_cast<const QTextTable*>(frame);
  const int row = table ? table->cellAt(position).row() : -1;
  if (row < 0) return {frame->firstPosition(), frame->lastPosition()};
  Stretch cells{position, position};
  for (int column = 0; column < table->columns(); ++column) {
    const QTextTableCell cell = table->cellAt(row, column);
    const QTextTableCell below = table->cellAt(row + table->cellAt(position).rowSpan() - 1, column);
    cells = {std::min(cells.begin, cell.firstPosition()), std::max(cells.end, below.lastPosition())};
  }
  return cells;
}

}  // namespace

void PaintLabel(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QString& label,
                const QPalette& palette) {
  if (block.layout()->lineCount() == 0) return;
  const QAbstractTextDocumentLayout& whole = *block.document()->documentLayout();
  const QTextCharFormat format = QTextCursor(block).charFormat();
  QFont font = format.font().resolve(block.document()->defaultFont());
  if (whole.paintDevice()) font = QFont(font, whole.paintDevice());
  const QFontMetrics metrics(font);
  // On whole pixels, as Qt's layout puts it.
  const QTextLine line = block.layout()->lineAt(0);
  const QRectF text = line.naturalTextRect();
  const QPoint start = origin.toPoint() + text.topLeft().toPoint();
  const int blank = metrics.horizontalAdvance(u' ');
  const double left = block.textDirection() == Qt::LeftToRight ? start.x() - blank - metrics.horizontalAdvance(label)
                                                               : start.x() + text.width() + blank;
  const QBrush ink = format.foreground();
  painter.save();
  painter.setFont(font);
  painter.setPen(QPen(ink.style() == Qt::NoBrush ? palette.text() : ink, 0));
  painter.drawText(QPointF(left, start.y() + line.ascent()), label);
  painter.restore();
}

void PaintBorders(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QPalette& palette) {
  if (!block.blockFormat().hasProperty(kParagraphBorder)) return;
  const double dots = DotsPerTwip(*block.document());
  const ParagraphBorders lines = BordersOf(block.blockFormat());
  const QRectF text = block.layout()->boundingRect().translated(origin);
  const auto reach = [&](BorderSide side) {
    return lines[side].space * dots + (lines[side].width > 0 ? std::max(lines[side].width * dots, 1.0) : 0);
  };
  // The lines above and below reach over those at the sides.
  const QRectF outer = text.adjusted(-reach(kBorderLeft), 0, reach(kBorderRight), 0);
  const bool goesOn = SharesBorder(block, block.next());
  const bool wentOn = SharesBorder(block, block.previous());
  const QRectF tall = text.adjusted(0, wentOn ? 0 : -lines[kBorderTop].space * dots, 0,
                                    goesOn ? SpaceBelow(block) * kTwipsPerPixel * dots : lines[kBorderBottom].space * dots);
  painter.save();
  const BorderPainter border(painter, dots, palette.color(QPalette::Text));
  if (!wentOn) border.Paint(lines[kBorderTop], {outer.topLeft(), outer.topRight()}, {0, -1});
  if (!goesOn) border.Paint(lines[kBorderBottom], {outer.bottomLeft(), outer.bottomRight()}, {0, 1});
  border.Paint(lines[kBorderLeft], {tall.topLeft(), tall.bottomLeft()}, {-1, 0});
  border.Paint(lines[kBorderRight], {tall.topRight(), tall.bottomRight()}, {1, 0});
  painter.restore();
}

void PaintMarks(QPainter& painter, const QTextBlock& block, const QPointF& origin, const QPalette& palette) {
  if (IsLabelTakenFromQt(block)) PaintLabel(painter, block, origin, ListLabel(block), palette);
  PaintBorders(painter, block, origin, palette);
  if (HasLeaders(block)) PaintLeaders(painter, block, origin, DotsPerTwip(*block.document()) * kTwipsPerPixel, palette);
}

void PaintMarks(QPainter& painter, const QTextDocument& document, const QRectF& clip, const QPalette& palette) {
  const QAbstractTextDocumentLayout& layout = *document.documentLayout();
  const Stretch top = Surroundings(document, std::max(layout.hitTest(clip.topLeft(), Qt::FuzzyHit), 0));
  const Stretch bottom = Surroundings(document, std::max(layout.hitTest(clip.bottomLeft(), Qt::FuzzyHit), 0));
  for (QTextBlock block = document.findBlock(top.begin); block.isValid() && block.position() <= bottom.end;
       block = block.next()) {
    if (!HasMarks(block) || !block.isVisible()) continue;
    const QRectF place = layout.blockBoundingRect(block);
    if (place.bottom() >= clip.top() && place.top() <= clip.bottom()) PaintMarks(painter, block, place.topLeft(), palette);
  }
}

}  // namespace snipdeck

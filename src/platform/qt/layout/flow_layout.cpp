#include "platform/qt/layout/flow_layout.h"

#include <limits>

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextFrame>

#include "platform/qt/layout/paragraph_painter.h"

namespace snipdeck {

namespace {

double ScaleOf(const QPaintDevice* device) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  return device && screen ? device->logicalDpiY() / screen->logicalDotsPerInchY() : 1;
}

}  // namespace

FlowLayout::FlowLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {
  auto* const pictures =
      dynamic_cast<QObject*>(m_objects.documentLayout()->handlerForObject(QTextFormat::ImageObject));
  if (pictures) registerHandler(QTextFormat::ImageObject, pictures);
}

double FlowLayout::Margin() const {
  return document()->rootFrame()->frameFormat().leftMargin();
}

TextColumn FlowLayout::FindColumn() const {
  const double width = document()->textWidth();
  const bool wraps = width > 0 && document()->defaultTextOption().wrapMode() != QTextOption::NoWrap;
  const QTextFrameFormat frame = document()->rootFrame()->frameFormat();
  return {Margin(), std::max(width - Margin() - frame.rightMargin(), 1.0), wraps, ScaleOf(paintDevice())};
}

int FlowLayout::CaretWidth() const {
  const QVariant width = property("cursorWidth");
  return width.isValid() ? width.toInt() : 1;
}

QRectF FlowLayout::frameBoundingRect(QTextFrame*) const {
  return {QPointF(), documentSize()};
}

void FlowLayout::draw(QPainter* painter, const PaintContext& context) {
  const int caretWidth = CaretWidth();
  const bool isClipped = context.clip.isValid();
  const double top = isClipped ? context.clip.top() : std::numeric_limits<double>::lowest();
  const double bottom = isClipped ? context.clip.bottom() : std::numeric_limits<double>::max();
  for (QTextBlock block = isClipped ? BlockAt(top) : document()->firstBlock(); block.isValid(); block = block.next()) {
    const QRectF place = blockBoundingRect(block);
    if (place.top() > bottom) return;
    if (block.isVisible() && place.bottom() >= top) PaintParagraph(*painter, block, context, caretWidth);
  }
}

}  // namespace snipdeck

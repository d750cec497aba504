#include "platform/qt/layout/paragraph_lines.h"

#include <cmath>

#include <QStyle>
#include <QTextDocument>
#include <QTextLayout>

#include "richtext/format_values.h"

namespace snipdeck {

namespace {

constexpr double kEndlessLine = 1e6;  // pixels; QTextLine counts in 1/64 of them, in 32 bits

QTextOption OptionFor(const QTextBlock& block, const TextColumn& column) {
  const QTextBlockFormat format = block.blockFormat();
  QTextOption option = block.document()->defaultTextOption();
  const Qt::LayoutDirection direction = block.textDirection();
  option.setTextDirection(direction);
  option.setTabs(format.tabPositions());
  const Qt::Alignment alignment =
      format.hasProperty(QTextFormat::BlockAlignment) ? format.alignment() : option.alignment();
  option.setAlignment(QStyle::visualAlignment(direction, alignment));
  if (format.nonBreakableLines() || !column.wraps) option.setWrapMode(QTextOption::ManualWrap);
  return option;
}

}  // namespace

double SpaceAbove(const QTextBlock& block, const TextColumn& column) {
  const QTextBlock previous = block.previous();
  if (!previous.isValid()) return 0;
  return std::max(block.blockFormat().topMargin(), previous.blockFormat().bottomMargin()) * column.scale;
}

double IndentOf(const QTextBlock& block, const TextColumn& column) {
  return ListSteps(block) * block.document()->indentWidth() * column.scale;
}

LineRoom RoomOf(const QTextLine& line, const QTextBlockFormat& format, double scale) {
  LineRoom room;
  const int type = format.lineHeightType();
  room.advance = format.lineHeight(std::ceil(line.ascent() + line.descent() + line.leading()), scale);
  room.bottom = format.lineHeight(line.height(), scale);
  const bool isSet = type == QTextBlockFormat::FixedHeight || type == QTextBlockFormat::MinimumHeight;
  room.needed = isSet ? room.bottom : line.height();
  if (type == QTextBlockFormat::FixedHeight)
    room.raised = line.ascent() + std::max(line.leading(), 0.0) - room.advance * 4 / 5;
  if (type == QTextBlockFormat::MinimumHeight) room.raised = line.height() - room.advance;
  return room;
}

void BreakLines(const QTextBlock& block, const TextColumn& column) {
  QTextLayout& layout = *block.layout();
  const QTextBlockFormat format = block.blockFormat();
  const bool leftToRight = block.textDirection() == Qt::LeftToRight;
  const double indent = IndentOf(block, column);
  const double left = format.leftMargin() + (leftToRight ? indent : 0);
  const double right = format.rightMargin() + (leftToRight ? 0 : indent);
  const double width = column.wraps ? column.width - left - right : kEndlessLine;
  double firstIndent = format.textIndent();

  layout.setTextOption(OptionFor(block, column));
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(width - firstIndent);
    // A picture may be wider than the column.
    if (line.naturalTextWidth() > width - firstIndent) line.setLineWidth(line.naturalTextWidth());
    line.setPosition(QPointF(left + (leftToRight ? firstIndent : 0), 0));
    firstIndent = 0;
  }
  layout.endLayout();
}

double PlaceLines(const QTextBlock& block, const TextColumn& column) {
  BreakLines(block, column);
  const QTextBlockFormat format = block.blockFormat();
  const QTextLayout& layout = *block.layout();
  double y = 0;
  double bottom = 0;
  for (int i = 0; i < layout.lineCount(); ++i) {
    QTextLine line = layout.lineAt(i);
    const LineRoom room = RoomOf(line, format, column.scale);
    line.setPosition(QPointF(line.x(), y - room.raised));
    bottom = y + room.bottom;
    y += room.advance;
  }
  return std::max(y, bottom);
}

}  // namespace snipdeck

#include "richtext/tab_leaders.h"

#include <algorithm>
#include <cmath>

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

namespace snipdeck {
namespace {

/// The leader of the stop that a tab at `x` of a line reaches.
QChar LeaderAt(const QList<QTextOption::Tab>& tabs, double x, double dotsPerPixel) {
  for (const QTextOption::Tab& tab : tabs) {
    if (tab.position * dotsPerPixel > x) return LeaderOf(tab);
  }
  return {};
}

QTextCharFormat FormatAt(const QTextBlock& block, int position) {
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + position + 1);
  return cursor.charFormat();
}

/// Fills from `left` to `right` with signs that stand below those of other lines.
void PaintLeader(QPainter& painter, QChar leader, double left, double right, double baseline) {
  const double step = QFontMetricsF(painter.font(), painter.device()).horizontalAdvance(leader);
  if (step <= 0) return;
  const double first = std::ceil(left / step) * step;
  const auto count = static_cast<qsizetype>((right - first) / step);
  if (count > 0) painter.drawText(QPointF(first, baseline), QString(std::min<qsizetype>(count, 1000), leader));
}

}  // namespace

QChar LeaderOf(const QTextOption::Tab& tab) {
  return tab.type == QTextOption::DelimiterTab ? QChar() : tab.delimiter;
}

QTextOption::Tab WithLeader(QTextOption::Tab tab, QChar leader) {
  if (tab.type != QTextOption::DelimiterTab) tab.delimiter = leader;
  return tab;
}

bool HasLeaders(const QTextBlock& block) {
  if (!block.blockFormat().hasProperty(QTextFormat::TabPositions)) return false;
  const QList<QTextOption::Tab> tabs = block.blockFormat().tabPositions();
  return std::any_of(tabs.begin(), tabs.end(), [](const QTextOption::Tab& tab) { return !LeaderOf(tab).isNull(); });
}

void PaintLeaders(QPainter& painter, const QTextBlock& block, const QPointF& origin, double dotsPerPixel,
                  const QPalette& palette) {
  const QString text = block.text();
  const QList<QTextOption::Tab> tabs = block.blockFormat().tabPositions();
  const QPaintDevice* const device = block.document()->documentLayout()->paintDevice();
  painter.save();
  for (qsizetype at = text.indexOf(u'\t'); at >= 0; at = text.indexOf(u'\t', at + 1)) {
    const QTextLine line = block.layout()->lineForTextPosition(static_cast<int>(at));
    if (!line.isValid()) continue;
    const double from = line.cursorToX(static_cast<int>(at));
    const double to = line.cursorToX(static_cast<int>(at) + 1);
    const QChar leader = LeaderAt(tabs, std::min(from, to) - line.x(), dotsPerPixel);
    if (leader.isNull()) continue;
    const QTextCharFormat format = FormatAt(block, static_cast<int>(at));
    const QFont font = format.font().resolve(block.document()->defaultFont());
    painter.setFont(device ? QFont(font, device) : font);
    const QBrush ink = format.foreground();
    painter.setPen(QPen(ink.style() == Qt::NoBrush ? palette.text() : ink, 0));
    PaintLeader(painter, leader, origin.x() + std::min(from, to), origin.x() + std::max(from, to),
                origin.y() + line.y() + line.ascent());
  }
  painter.restore();
}

}  // namespace snipdeck

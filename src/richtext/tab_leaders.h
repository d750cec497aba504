#pragma once

#include <QPalette>
#include <QTextBlock>

class QPainter;

namespace snipdeck {

/// The line of characters that leads to a tab stop, as in a table of contents. It is kept as the stop's delimiter, which
/// Qt asks for at decimal stops only: these have no leaders.
QChar LeaderOf(const QTextOption::Tab& tab);

/// The tab stop that leads up to it; a null leader is none.
QTextOption::Tab WithLeader(QTextOption::Tab tab, QChar leader);

bool HasLeaders(const QTextBlock& block);

/// The leaders of a paragraph that has been placed. `origin` is where its layout stands; `dotsPerPixel` is what the
/// layout's device makes of the 96th part of an inch.
void PaintLeaders(QPainter& painter, const QTextBlock& block, const QPointF& origin, double dotsPerPixel,
                  const QPalette& palette);

}  // namespace snipdeck

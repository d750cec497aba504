#include "navigation/sidebar_delegate.h"

#include <QAbstractScrollArea>
#include <QPainter>

#include "platform/qt/drawn_icon.h"

namespace snipdeck {

namespace {

constexpr int kIconSize = 32;
constexpr int kIconTop = 6;
constexpr int kCaptionTop = 40;
constexpr int kCaptionMargin = 3;
constexpr int kMarkWidth = 4;
constexpr double kGreyedOut = 0.45;

QColor ColourOf(const QModelIndex& index, Qt::ItemDataRole role, const QColor& fallback) {
  const QVariant brush = index.data(role);
  return brush.isValid() ? brush.value<QBrush>().color() : fallback;
}

// The part of a cell that a vertical scroll bar leaves free.
QRect ShownPart(const QStyleOptionViewItem& option) {
  QRect part = option.rect;
  if (const auto* grid = qobject_cast<const QAbstractScrollArea*>(option.widget))
    part.setRight(std::min(part.right(), grid->viewport()->width() - 1));
  return part;
}

void PaintCurrentMark(QPainter& painter, const QRect& cell, bool hasFocus, const QColor& colour) {
  painter.fillRect(QRect(cell.topLeft(), QSize(kMarkWidth, cell.height())), colour);
  if (!hasFocus) return;
  painter.setPen(colour);
  painter.drawRect(cell.adjusted(0, 0, -1, -1));
}

}  // namespace

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QColor text = ColourOf(index, Qt::ForegroundRole, kSidebarText);
  const QColor ground = ColourOf(index, Qt::BackgroundRole, kSidebarGrey);
  const QRect cell = ShownPart(option);
  painter->save();
  painter->fillRect(cell, ground);
  if (option.state & QStyle::State_Selected)
    PaintCurrentMark(*painter, cell, option.state & QStyle::State_HasFocus, text);
  if (!(index.flags() & Qt::ItemIsEnabled)) painter->setOpacity(kGreyedOut);
  const QRect icon(cell.left() + (cell.width() - kIconSize) / 2, cell.top() + kIconTop, kIconSize, kIconSize);
  PaintDrawnIcon(*painter, index.data(kIconRole).toString(), icon, text, ground);
  painter->setFont(index.data(Qt::FontRole).value<QFont>());
  painter->setPen(text);
  const QRect place = cell.adjusted(kCaptionMargin, kCaptionTop, -kCaptionMargin, 0);
  painter->drawText(
      place, Qt::AlignHCenter | Qt::AlignTop,
      painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, place.width(), Qt::TextSingleLine));
  painter->restore();
}

}  // namespace snipdeck

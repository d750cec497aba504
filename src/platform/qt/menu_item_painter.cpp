#include "platform/qt/menu_item_painter.h"

#include <algorithm>

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

namespace snipdeck {

namespace {

constexpr int kStripWidth = 26;
constexpr int kTextGap = 6;
constexpr int kKeyGap = 24;
constexpr int kRightMargin = 18;
constexpr int kItemHeight = 24;
constexpr int kSeparatorHeight = 3;
constexpr int kIconSize = 16;
constexpr int kArrowSize = 4;

/// The shape of a picture in one colour.
QPixmap Tinted(QPixmap picture, const QColor& colour) {
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(picture.rect(), colour);
  return picture;
}

}  // namespace

void PaintSelection(const MenuScheme& scheme, const QRect& frame, QPainter& painter) {
  painter.setPen(QColor(scheme.selectedMenuBorder));
  painter.setBrush(QColor(scheme.selectedMenuFill));
  painter.drawRect(frame);
}

MenuItemPainter::MenuItemPainter(const MenuScheme& scheme, const QStyleOptionMenuItem& item, QPainter& painter)
    : m_scheme(scheme),
      m_item(item),
      m_painter(painter),
      m_selected(Has(QStyle::State_Selected) && Has(QStyle::State_Enabled)) {}

QSize MenuItemPainter::Size(const QStyleOptionMenuItem& item, const QSize& contents) {
  if (item.menuItemType == QStyleOptionMenuItem::Separator) return {contents.width(), kSeparatorHeight};
  return {contents.width() + kStripWidth + kTextGap + kKeyGap + kRightMargin,
          std::max(kItemHeight, contents.height() + 4)};
}

void MenuItemPainter::Paint() {
  PaintGround();
  if (m_item.menuItemType == QStyleOptionMenuItem::Separator) return PaintSeparator();
  if (m_selected) PaintSelection(m_scheme, m_item.rect.adjusted(0, 0, -1, -1), m_painter);
  if (m_item.checkType != QStyleOptionMenuItem::NotCheckable && m_item.checked) PaintCheck();
  if (!m_item.icon.isNull()) PaintIcon();
  PaintText();
  if (m_item.menuItemType == QStyleOptionMenuItem::SubMenu) PaintArrow();
}

void MenuItemPainter::PaintGround() {
  const QRect strip(m_item.rect.left(), m_item.rect.top(), kStripWidth, m_item.rect.height());
  QLinearGradient fill(strip.topLeft(), strip.topRight());
  fill.setColorAt(0, QColor(m_scheme.sideStripGradient1));
  fill.setColorAt(1, QColor(m_scheme.sideStripGradient2));
  m_painter.fillRect(m_item.rect, QColor(m_scheme.background));
  m_painter.fillRect(strip, fill);
}

void MenuItemPainter::PaintSeparator() {
  const QRect& rect = m_item.rect;
  m_painter.fillRect(rect.left() + kStripWidth + kTextGap, rect.center().y(), rect.width() - kStripWidth - kTextGap, 1,
                     QColor(m_scheme.separator));
}

QRect MenuItemPainter::StripCell() const {
  QRect cell(0, 0, kIconSize + 4, kIconSize + 4);
  cell.moveCenter({m_item.rect.left() + kStripWidth / 2 - 1, m_item.rect.center().y()});
  return cell;
}

void MenuItemPainter::PaintCheck() {
  const QRect cell = StripCell();
  m_painter.setPen(QColor(m_selected ? m_scheme.selectedCheckBorder : m_scheme.border));
  m_painter.setBrush(QColor(m_selected ? m_scheme.selectedCheckFill : m_scheme.checkFill));
  m_painter.drawRect(cell.adjusted(0, 0, -1, -1));
  if (!m_item.icon.isNull()) return;
  const QPointF middle = QRectF(cell).center();
  m_painter.setRenderHint(QPainter::Antialiasing);
  m_painter.setPen(QPen(QColor(m_scheme.checkMark), 2));
  m_painter.drawPolyline(QPolygonF({middle + QPointF(-4, 0), middle + QPointF(-1, 3), middle + QPointF(4, -4)}));
  m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void MenuItemPainter::PaintIcon() {
  const QRect place = StripCell().adjusted(2, 2, -2, -2);
  const double scale = m_painter.device()->devicePixelRatio();
  const QPixmap picture = m_item.icon.pixmap(QSize(kIconSize, kIconSize), scale, QIcon::Normal);
  if (!Has(QStyle::State_Enabled)) {
    m_painter.drawPixmap(place, Tinted(picture, QColor(m_scheme.disabledIconTint)));
  } else if (m_selected) {
    // A selected picture stands a little above its shadow.
    m_painter.drawPixmap(place.translated(1, 1), Tinted(picture, QColor(m_scheme.iconShadow)));
    m_painter.drawPixmap(place.translated(-1, -1), picture);
  } else {
    m_painter.drawPixmap(place, picture);
  }
}

void MenuItemPainter::PaintText() {
  const QStringList parts = m_item.text.split(u'\t');
  const QRect room = m_item.rect.adjusted(kStripWidth + kTextGap, 0, -kRightMargin, 0);
  const QRgb enabled = m_selected ? m_scheme.selectedMenuText : m_scheme.menuBarText;
  constexpr int flags = Qt::AlignVCenter | Qt::TextSingleLine;
  m_painter.setFont(m_item.font);
  m_painter.setPen(QColor(Has(QStyle::State_Enabled) ? enabled : m_scheme.disabledIconTint));
  m_painter.drawText(room, flags | Qt::AlignLeft | Qt::TextShowMnemonic, parts.first());
  if (parts.size() > 1) m_painter.drawText(room, flags | Qt::AlignRight, parts.last());
}

void MenuItemPainter::PaintArrow() {
  const QPoint tip(m_item.rect.right() - kArrowSize, m_item.rect.center().y());
  QPainterPath arrow(tip);
  arrow.lineTo(tip + QPoint(-kArrowSize, -kArrowSize));
  arrow.lineTo(tip + QPoint(-kArrowSize, kArrowSize));
  arrow.closeSubpath();
  m_painter.fillPath(arrow, QColor(m_selected ? m_scheme.selectedArrow : m_scheme.arrow));
}

}  // namespace snipdeck

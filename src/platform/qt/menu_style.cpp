#include "platform/qt/menu_style.h"

#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStyleOption>

#include "platform/qt/menu_item_painter.h"

namespace snipdeck {

namespace {

constexpr int kBarItemMargin = 8;
constexpr int kBarItemHeight = 24;
constexpr double kMenuFontPoints = 11.25;

void PaintBarItem(const MenuScheme& scheme, const QStyleOptionMenuItem& item, QPainter& painter) {
  const QRect frame = item.rect.adjusted(0, 1, -1, -2);
  painter.fillRect(item.rect, QColor(scheme.menuBarBackground));
  const bool isOpen = item.state & QStyle::State_Sunken;
  if (isOpen) {
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, QColor(scheme.topLevelGradient1));
    fill.setColorAt(1, QColor(scheme.topLevelGradient2));
    painter.fillRect(frame, fill);
    painter.setPen(QColor(scheme.border));
    painter.drawRect(frame);
  } else if (item.state & QStyle::State_Selected) {
    PaintSelection(scheme, frame, painter);
  }
  painter.setPen(QColor(item.state & QStyle::State_Enabled ? scheme.menuBarText : scheme.disabledIconTint));
  painter.drawText(item.rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, item.text);
}

}  // namespace

MenuStyle::MenuStyle(const MenuScheme& scheme, QObject* owner) : m_scheme(scheme) {
  setParent(owner);
}

QFont MenuStyle::MenuFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Calibri"), QStringLiteral("Carlito")});
  font.setPointSizeF(kMenuFontPoints);
  font.setWeight(QFont::Normal);
  return font;
}

void MenuStyle::ApplyTo(QMenuBar& bar) {
  bar.setStyle(this);
  bar.setFont(MenuFont());
  for (QMenu* menu : bar.findChildren<QMenu*>()) ApplyTo(*menu);
}

void MenuStyle::ApplyTo(QMenu& menu) {
  menu.setStyle(this);
  menu.setFont(MenuFont());
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  painter->save();
  if (element == CE_MenuBarItem && item) {
    PaintBarItem(m_scheme, *item, *painter);
  } else if (element == CE_MenuBarEmptyArea) {
    painter->fillRect(option->rect, QColor(m_scheme.menuBarBackground));
  } else if (element == CE_MenuItem && item) {
    MenuItemPainter(m_scheme, *item, *painter).Paint();
  } else if (element != CE_MenuEmptyArea) {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
  painter->restore();
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element == PE_PanelMenu) {
    painter->fillRect(option->rect, QColor(m_scheme.background));
  } else if (element == PE_FrameMenu) {
    painter->setPen(QColor(m_scheme.border));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  } else if (element != PE_PanelMenuBar) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

int MenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_MenuPanelWidth:
    case PM_MenuVMargin:
    case PM_MenuHMargin:
      return 1;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

QSize MenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                  const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (type == CT_MenuBarItem)
    return {contents.width() + 2 * kBarItemMargin, std::max(kBarItemHeight, contents.height() + 4)};
  if (type == CT_MenuItem && item) return MenuItemPainter::Size(*item, contents);
  return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

}  // namespace snipdeck

#pragma once

#include <QProxyStyle>

#include "platform/menu_scheme.h"

class QMenu;
class QMenuBar;
class QStyleOptionMenuItem;

namespace snipdeck {

/// Draws menu bars and their menus in the colours of a scheme, whatever the desktop's own colours are. Everything else
/// looks as the desktop has it.
class MenuStyle : public QProxyStyle {
  Q_OBJECT

 public:
  /// `owner` keeps the style for as long as the menus live.
  MenuStyle(const MenuScheme& scheme, QObject* owner);

  /// Calibri at 11.25 points, or the font with the same measures.
  static QFont MenuFont();
  /// Gives a menu bar and all menus in it this look and font.
  void ApplyTo(QMenuBar& bar);

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;

 private:
  void ApplyTo(QMenu& menu);

  const MenuScheme& m_scheme;
};

}  // namespace snipdeck

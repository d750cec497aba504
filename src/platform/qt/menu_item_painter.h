#pragma once

#include <QStyleOption>

#include "platform/menu_scheme.h"

class QPainter;

namespace snipdeck {

/// The bar over a selected item.
void PaintSelection(const MenuScheme& scheme, const QRect& frame, QPainter& painter);

/// One item of a drop-down menu: its part of the side strip with check mark or picture, its text, its key, its arrow.
class MenuItemPainter {
 public:
  MenuItemPainter(const MenuScheme& scheme, const QStyleOptionMenuItem& item, QPainter& painter);

  void Paint();
  /// Room for an item whose text takes `contents`, in pixels; the key's column comes on top.
  static QSize Size(const QStyleOptionMenuItem& item, const QSize& contents);

 private:
  void PaintGround();
  void PaintSeparator();
  void PaintCheck();
  void PaintIcon();
  void PaintText();
  void PaintArrow();
  bool Has(QStyle::State state) const { return m_item.state & state; }
  QRect StripCell() const;

  const MenuScheme& m_scheme;
  const QStyleOptionMenuItem& m_item;
  QPainter& m_painter;
  bool m_selected;
};

}  // namespace snipdeck

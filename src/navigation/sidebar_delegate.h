#pragma once

#include <QStyledItemDelegate>

namespace snipdeck {

inline constexpr QColor kSidebarGrey(147, 148, 157);
inline constexpr QColor kSidebarText(255, 255, 255);
inline constexpr QColor kSidebarHotGround(255, 255, 247);
inline constexpr QColor kSidebarHotText(0, 0, 0);

/// Paints a row of the sidebar: the picture of its key over its caption, both in the cell's text colour.
class SidebarDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// Data role of the picture's key.
  static constexpr int kIconRole = Qt::UserRole;

  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace snipdeck

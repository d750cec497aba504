#pragma once

#include <QProxyStyle>

namespace snipdeck {

/// The desktop's style. Where that is Fusion, which draws frames darker than what is around them, the empty fields of a
/// dark desktop get frames that can be seen; and buttons have no pictures where the desktop has none of its own.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override;
};

}  // namespace snipdeck

#include "platform/qt/program_style.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>

#include "platform/readable_colour.h"

namespace snipdeck {

namespace {

constexpr double kFrameShare = 0.55;  // of the text's colour, the rest is the window's
constexpr double kCorner = 2;         // pixels

QColor FrameColour(const QPalette& colours) {
  const QColor window = colours.color(QPalette::Window);
  const QColor text = colours.color(QPalette::WindowText);
  const auto mix = [](int from, int to) { return static_cast<int>(from + (to - from) * kFrameShare); };
  return {mix(window.red(), text.red()), mix(window.green(), text.green()), mix(window.blue(), text.blue())};
}

void PaintFrame(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter) {
  QRectF frame = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(FrameColour(option.palette));
  painter.setBrush(Qt::NoBrush);
  if (element == QStyle::PE_IndicatorRadioButton) {
    painter.drawEllipse(frame.adjusted(1, 1, 0, 0));
  } else if (element == QStyle::PE_IndicatorCheckBox) {
    painter.drawRect(frame);
  } else {
    painter.drawRoundedRect(frame, kCorner, kCorner);
  }
  painter.restore();
}

bool IsEmptyField(QStyle::PrimitiveElement element, const QStyleOption& option) {
  if (element == QStyle::PE_FrameLineEdit) return !(option.state & QStyle::State_HasFocus);
  return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton;
}

}  // namespace

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (!IsEmptyField(element, *option) || baseStyle()->name() != QStringLiteral("fusion")) return;
  const bool isDark = ReadableOn(option->palette.color(QPalette::Window)) == Qt::white;
  if (isDark) PaintFrame(element, *option, *painter);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* answer) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons && !QIcon::hasThemeIcon(QStringLiteral("dialog-ok"))) return 0;
  return QProxyStyle::styleHint(hint, option, widget, answer);
}

}  // namespace snipdeck

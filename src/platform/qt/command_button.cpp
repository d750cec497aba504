#include "platform/qt/command_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "platform/qt/drawn_icon.h"
#include "platform/readable_colour.h"

namespace snipdeck {

namespace {

constexpr int kIconSize = 16;
constexpr double kGreyedOut = 0.4;

QColor InkOn(const QColor& ground) {
  return ReadableOn(ground) == Qt::white ? QColor(Qt::white) : QColor(27, 36, 49);
}

}  // namespace

CommandButton::CommandButton(const QString& icon, const QString& toolTip, QWidget* parent)
    : QPushButton(parent), m_icon(icon) {
  setToolTip(toolTip);
  setAccessibleName(toolTip);
  setAutoDefault(false);
  // A click leaves the keyboard, and what is selected, in the text.
  setFocusPolicy(Qt::TabFocus);
}

void CommandButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  painter.drawControl(QStyle::CE_PushButton, option);
  if (!isEnabled()) painter.setOpacity(kGreyedOut);
  QRect place(0, 0, kIconSize, kIconSize);
  place.moveCenter(rect().center());
  const QColor ground = palette().color(QPalette::Button);
  PaintDrawnIcon(painter, m_icon, place, InkOn(ground), ground);
}

}  // namespace snipdeck

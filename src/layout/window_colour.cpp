#include "layout/window_colour.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>

#include "platform/readable_colour.h"

namespace snipdeck {

namespace {

void Colour(QWidget& widget, QPalette::ColorRole groundRole, QPalette::ColorRole textRole, const QColor& ground) {
  const QColor text = ReadableOn(ground);
  QColor greyed = text;
  greyed.setAlphaF(0.4F);
  QPalette colours = widget.palette();
  colours.setColor(groundRole, ground);
  colours.setColor(textRole, text);
  colours.setColor(QPalette::Disabled, textRole, greyed);
  widget.setPalette(colours);
}

// Labels lie on the background and show it; whatever has a ground of its own does not take part.
bool LiesOnBackground(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) && !widget.autoFillBackground();
}

// What a widget has only inherited would change with its parent.
void HoldColours(QWidget& widget) {
  QPalette own = widget.palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    own.setBrush(group, QPalette::Window, own.brush(group, QPalette::Window));
    own.setBrush(group, QPalette::WindowText, own.brush(group, QPalette::WindowText));
  }
  widget.setPalette(own);
}

void ColourBackground(QWidget& background, const QColor& colour) {
  const auto children = background.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* child : children) {
    if (!child->isWindow() && !LiesOnBackground(*child)) HoldColours(*child);
  }
  Colour(background, QPalette::Window, QPalette::WindowText, colour);
  background.setAutoFillBackground(true);
}

}  // namespace

void ColourWindow(QWidget& window, const QColor& colour) {
  const auto* main = qobject_cast<QMainWindow*>(&window);
  ColourBackground(main && main->centralWidget() ? *main->centralWidget() : window, colour);
  for (QPushButton* button : window.findChildren<QPushButton*>()) {
    if (button->window() == &window && !button->objectName().contains(QStringLiteral("cmdExit")))
      Colour(*button, QPalette::Button, QPalette::ButtonText, colour);
  }
}

}  // namespace snipdeck

#include "layout/control_font.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "platform/qt/control_companion.h"
#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

template <typename... Kinds>
bool IsOneOf(const QWidget& widget) {
  return (qobject_cast<const Kinds*>(&widget) || ...);
}

bool IsFrame(const QWidget& widget) {
  return IsOneOf<QGroupBox>(widget) || widget.objectName().startsWith(QStringLiteral("Frame"));
}

bool TakesControlFont(const QWidget& widget) {
  return IsFrame(widget) || IsOneOf<QPushButton, QToolButton, QRadioButton, QLabel, QCheckBox, QLineEdit,
                                    QPlainTextEdit, QComboBox, QListWidget>(widget);
}

bool KeepsOwnFont(const QWidget& widget) {
  return IsOneOf<ControlCompanion, RichTextControl, QMenuBar>(widget) ||
         (IsOneOf<QAbstractScrollArea>(widget) && !IsOneOf<QListWidget, QPlainTextEdit>(widget));
}

// A font that a widget has only inherited would change with its parent's.
void HoldFont(QWidget& widget) {
  QFont own = widget.font();
  own.setFamilies(own.families());
  own.setBold(own.bold());
  if (own.pointSizeF() > 0) {
    own.setPointSizeF(own.pointSizeF());
  } else {
    own.setPixelSize(own.pixelSize());
  }
  widget.setFont(own);
}

void GiveFont(QWidget& widget, const FontChoice& choice) {
  QFont font = widget.font();
  font.setBold(choice.bold);
  if (!choice.name.isEmpty()) font.setFamily(choice.name);
  if (choice.points > 0) font.setPointSizeF(choice.points);
  widget.setFont(font);
}

}  // namespace

void SetControlFont(QWidget& window, const FontChoice& font) {
  const auto children = window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* child : children) {
    if (child->isWindow()) continue;
    if (KeepsOwnFont(*child)) HoldFont(*child);
  }
  if (TakesControlFont(window)) GiveFont(window, font);
  for (QWidget* child : children) {
    if (!child->isWindow() && !KeepsOwnFont(*child)) SetControlFont(*child, font);
  }
}

}  // namespace snipdeck

#pragma once

#include <QPushButton>

namespace snipdeck {

/// A button of a dialog under its given name; whoever lays it out owns it.
inline QPushButton* DialogButton(const char* name, const QString& caption, const QString& toolTip) {
  auto* button = new QPushButton(caption);
  button->setObjectName(QString::fromLatin1(name));
  button->setToolTip(toolTip);
  return button;
}

}  // namespace snipdeck

#pragma once

#include <QPushButton>

namespace snipdeck {

/// A button of the main window's top row: a picture without words, told by its tool tip. The picture's lines are dark
/// on a light button and light on a dark one, whatever colour the user gives the buttons.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  /// `icon` is the key of the picture.
  CommandButton(const QString& icon, const QString& toolTip, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString m_icon;
};

}  // namespace snipdeck

#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/message_box.h"

namespace snipdeck {

/// Message boxes of the desktop, in front of one window. Texts are shown as they are, without markup.
class QtMessageBox : public MessageBox {
 public:
  /// nullptr: in front of whichever window of the program is active.
  explicit QtMessageBox(QWidget* parent = nullptr) : m_parent(parent) {}

  MessageAnswer Show(const Message& message) override;
  void Beep() override;

 private:
  QPointer<QWidget> m_parent;
};

}  // namespace snipdeck

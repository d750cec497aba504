#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/message_box.h"

namespace snipdeck {

/// Message boxes of the desktop, in front of one window. Texts are shown as they are, without markup.
class QtMessageBox : public MessageBox {
 public:
  /// nullptr: in front of no window in particular.
  explicit QtMessageBox(QWidget* parent) : m_parent(parent) {}

  void ShowInformation(const QString& text) override;

 private:
  QPointer<QWidget> m_parent;
};

}  // namespace snipdeck

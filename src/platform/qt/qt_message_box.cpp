#include "platform/qt/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>

namespace snipdeck {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return QMessageBox::Ok;
    case MessageButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton DefaultButtonOf(const Message& message) {
  switch (message.defaultButton) {
    case MessageAnswer::Yes:
      return QMessageBox::Yes;
    case MessageAnswer::No:
      return QMessageBox::No;
    case MessageAnswer::Cancel:
      return QMessageBox::Cancel;
    case MessageAnswer::Ok:
      break;
  }
  return message.buttons == MessageButtons::Ok ? QMessageBox::Ok : QMessageBox::Yes;
}

MessageAnswer ClosedAnswer(MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

/// A message is answered with the normal pointer, also while something else is busy.
class ArrowPointer {
 public:
  ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;
};

}  // namespace

MessageAnswer QtMessageBox::Show(const Message& message) {
  QWidget* owner = m_parent ? m_parent.data() : QApplication::activeWindow();
  QString text = message.text;
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QMessageBox box(IconOf(message.icon), message.caption, text, ButtonsOf(message.buttons), owner);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(DefaultButtonOf(message));
  const ArrowPointer arrow;
  switch (box.exec()) {
    case QMessageBox::Yes:
      return MessageAnswer::Yes;
    case QMessageBox::No:
      return MessageAnswer::No;
    case QMessageBox::Ok:
      return MessageAnswer::Ok;
    default:
      return ClosedAnswer(message.buttons);
  }
}

void QtMessageBox::Beep() {
  QApplication::beep();
}

}  // namespace snipdeck

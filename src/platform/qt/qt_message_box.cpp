#include "platform/qt/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>

namespace snipdeck {

void QtMessageBox::ShowInformation(const QString& text) {
  QWidget* owner = m_parent ? m_parent.data() : QApplication::activeWindow();
  QMessageBox box(QMessageBox::Information, QLatin1String(kProgramTitle), text, QMessageBox::Ok, owner);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace snipdeck

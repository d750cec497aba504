#include "platform/qt/qt_message_box.h"

#include <QMessageBox>

namespace snipdeck {

void QtMessageBox::ShowInformation(const QString& text) {
  QMessageBox box(QMessageBox::Information, QLatin1String(kProgramTitle), text, QMessageBox::Ok, m_parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace snipdeck

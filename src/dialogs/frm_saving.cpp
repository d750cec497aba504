#include "dialogs/frm_saving.h"

#include <QApplication>
#include <QPainter>

namespace snipdeck {

namespace {

constexpr QSize kSize(400, 60);  // pixels

// No window is active while one closes over another; the one that is in use is then the modal one beneath.
QWidget* WindowInUse() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : QApplication::activeWindow();
}

}  // namespace

frmSaving::frmSaving(QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowDoesNotAcceptFocus) {
  setObjectName(QStringLiteral("frmSaving"));
  setWindowTitle(tr("Saving current text file to disk ..."));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFixedSize(kSize);
  if (!owner) return;
  const QRect over = owner->window()->frameGeometry();
  move(over.center() - QPoint(kSize.width() / 2, kSize.height() / 2));
}

void frmSaving::paintEvent(QPaintEvent*) {
  QPainter(this).drawText(rect(), Qt::AlignCenter, windowTitle());
}

void SavingWindow::Show() {
  if (!m_notice) m_notice = new frmSaving(WindowInUse());
  m_notice->show();
}

void SavingWindow::Close() {
  delete m_notice;
}

}  // namespace snipdeck

#include "platform/qt/dialogs/progress_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/message_box.h"

namespace snipdeck {

namespace {

constexpr int kWhole = 1000;
constexpr int kWidth = 360;

}  // namespace

ProgressDialog::ProgressDialog(const QString& what, QWidget* owner)
    : QDialog(owner), m_what(new QLabel(what)), m_bar(new QProgressBar) {
  setObjectName("frmProgress");
  setWindowTitle(QString::fromLatin1(kProgramTitle));
  setWindowModality(Qt::ApplicationModal);
  setMinimumWidth(kWidth);
  m_what->setTextFormat(Qt::PlainText);
  m_what->setWordWrap(true);
  m_bar->setAccessibleName(what);
  m_bar->setRange(0, 0);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  m_cancel = buttons->button(QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_what);
  column->addWidget(m_bar);
  column->addWidget(buttons);
}

void ProgressDialog::SetCancellable(bool cancellable) {
  m_cancel->setEnabled(cancellable);
}

void ProgressDialog::reject() {
  if (!m_cancel->isEnabled()) return;
  m_what->setText(tr("Cancelling ..."));
  m_cancel->setEnabled(false);
  emit Cancelled();
}

void ProgressDialog::ShowPart(double part) {
  m_bar->setRange(0, part < 0 ? 0 : kWhole);
  if (part >= 0) m_bar->setValue(qRound(part * kWhole));
}

}  // namespace snipdeck

#include "dialogs/frm_txt_info.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include "dialogs/properties_sheet.h"
#include "dialogs/value_label.h"
#include "platform/copy_notice.h"
#include "platform/qt/dialogs/dialog_button.h"

namespace snipdeck {

namespace {

constexpr int kLeastValueWidth = 300;  // pixels

}  // namespace

frmTxtInfo::frmTxtInfo(const FileInfoServices& services, const FileDetails& details, QWidget* owner)
    : QDialog(owner), m_services(services), m_details(details) {
  setObjectName(QStringLiteral("frmTxtInfo"));
  setWindowTitle(tr("File information"));
  auto* column = new QVBoxLayout(this);
  column->addWidget(MakeDetails(), 1);
  column->addWidget(MakeButtons());
  findChild<QPushButton*>(QStringLiteral("cmdOk"))->setFocus();
}

QWidget* frmTxtInfo::MakeDetails() {
  auto* frame = new QFrame;
  frame->setFrameShape(QFrame::StyledPanel);
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(16);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(1, kLeastValueWidth);
  int row = 0;
  const auto add = [&](const QString& caption, const QString& value) {
    QLabel* label = MakeValueLabel(caption, value);
    label->setObjectName(QStringLiteral("Label%1").arg(row + 1));
    grid->addWidget(new QLabel(caption), row, 0, Qt::AlignTop);
    grid->addWidget(label, row++, 1);
  };
  add(tr("File Name"), m_details.name);
  add(tr("Archived"), m_details.date);
  add(tr("Size"), m_details.size);
  add(tr("File Folder"), m_details.folder);
  add(tr("Time"), m_details.nowTime);
  add(tr("Date"), m_details.nowDate);
  return frame;
}

QWidget* frmTxtInfo::MakeButtons() {
  auto* buttons = new QWidget;
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch(1);
  const auto add = [&](const char* name, const QString& caption, const QString& toolTip, auto handler) {
    QPushButton* button = DialogButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, handler);
    row->addWidget(button);
    return button;
  };
  add("cmdCopyToClipboard", tr("&Copy info"), tr("Copy these details to the clipboard"),
      &frmTxtInfo::cmdCopyToClipboard_Click);
  add("cmdMoreInfo", tr("&More info"), tr("Show the properties of the file"), &frmTxtInfo::cmdMoreInfo_Click);
  QPushButton* ok = add("cmdOk", tr("&Ok"), tr("Close this window"), &QDialog::accept);
  ok->setDefault(true);
  return buttons;
}

QString frmTxtInfo::Text() const {
  const auto line = [](const QString& words) { return words + QStringLiteral("\r\n"); };
  return line({}) + line(QStringLiteral("Current File: ") + m_details.name) +
         line(QStringLiteral("Path: ") + m_details.folder) + line(QStringLiteral("Size: ") + m_details.size) +
         line(QStringLiteral("Saved: ") + m_details.date) + line({}) +
         line(QStringLiteral("Time: ") + m_details.nowTime) + line(QStringLiteral("Date: ") + m_details.nowDate);
}

void frmTxtInfo::cmdCopyToClipboard_Click() {
  m_services.clipboard.PutRichText({.rtf = {}, .html = {}, .text = Text()});
  ShowCopyNotice(m_services.messages);
}

void frmTxtInfo::cmdMoreInfo_Click() {
  m_services.looks.ApplyControlFont(*this);
  const QString path = m_details.Path();
  m_services.shell.ShowProperties(path, winId(), [path, owner = QPointer<QWidget>(this)] {
    if (owner) ShowPropertiesSheet(path, *owner);
  });
}

}  // namespace snipdeck

#include "dialogs/frm_my_msg_box.h"

#include <cmath>

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>

#include "dialogs/frm_txt_info.h"
#include "platform/menu_colours.h"
#include "platform/qt/command_button.h"
#include "platform/qt/dialogs/dialog_button.h"
#include "platform/qt/menu_style.h"
#include "platform/units.h"

namespace snipdeck {

namespace {

constexpr double kHeight = 4200;         // twips, frame and title bar included
constexpr double kLeastWidth = 9630;     // twips, likewise
constexpr int kEdge = 16;                // pixels between a field's end and the window's edge
constexpr int kPictureButtonWidth = 40;  // pixels
constexpr int kPictureButtonHeight = 30;

QFrame* MakeFrame(const char* name) {
  auto* frame = new QFrame;
  frame->setObjectName(QString::fromLatin1(name));
  frame->setFrameShape(QFrame::StyledPanel);
  return frame;
}

template <typename Widget>
Widget* AddDetail(QGridLayout& grid, const QString& caption, const char* name) {
  auto* detail = new Widget;
  detail->setObjectName(QString::fromLatin1(name));
  detail->setAccessibleName(caption);
  const int row = grid.rowCount();
  auto* label = new QLabel(caption);
  label->setBuddy(detail);
  grid.addWidget(label, row, 0);
  grid.addWidget(detail, row, 1);
  return detail;
}

}  // namespace

frmMyMsgBox::frmMyMsgBox(const ClosingServices& services, const QString& path, QWidget* owner)
    : QDialog(owner),
      m_services(services),
      m_details(FileDetails::Of(path, QDateTime::currentDateTime(), QLocale())),
      m_geometry(*this) {
  setObjectName(QStringLiteral("frmMyMsgBox"));
  setWindowTitle(tr("Closing altered file..."));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setMenuBar(MakeMenus());
  column->addWidget(MakeDetails());
  column->addWidget(MakeChoices(), 1);
  ShowDetails();
  const double room = TwipsFromPixels(screen()->availableGeometry().width());
  m_geometry.SetWidth(std::max(std::min<double>(m_services.settings.messageBoxWidth, room), kLeastWidth));
  m_geometry.SetHeight(kHeight);
  KeepSize();
  findChild<QPushButton*>(QStringLiteral("cmdYes"))->setFocus();
}

QMenuBar* frmMyMsgBox::MakeMenus() {
  auto* bar = new QMenuBar(this);
  const auto add = [&](const char* name, const QString& caption, auto handler) {
    bar->addAction(caption, this, handler)->setObjectName(QString::fromLatin1(name));
  };
  add("mnuSave", tr("&Save file directly to disk"), &frmMyMsgBox::mnuSave_Click);
  add("mnuFileInfo", tr("&File info"), &frmMyMsgBox::mnuFileInfo_Click);
  add("mnuTrawler", tr("&Mini Trawler"), &frmMyMsgBox::mnuTrawler_Click);
  add("mnuExplorer", tr("E&xplorer"), &frmMyMsgBox::mnuExplorer_Click);
  (new MenuStyle(kBlueMenus, this))->ApplyTo(*bar);
  return bar;
}

QWidget* frmMyMsgBox::MakeDetails() {
  QFrame* frame = MakeFrame("Frame1");
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(kEdge, 8, kEdge - frame->frameWidth(), 8);
  grid->setVerticalSpacing(4);
  m_fileName = AddDetail<QLineEdit>(*grid, tr("File name"), "txtFileName");
  m_filePath = AddDetail<QLineEdit>(*grid, tr("File path"), "txtFilePath");
  m_fileSize = AddDetail<QLabel>(*grid, tr("File size"), "lblFileSize");
  m_fileDate = AddDetail<QLabel>(*grid, tr("File date"), "lblFileDate");
  for (QLineEdit* field : {m_fileName, m_filePath}) field->setReadOnly(true);
  return frame;
}

QWidget* frmMyMsgBox::MakeChoices() {
  QFrame* frame = MakeFrame("Frame2");
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(kEdge, 8, kEdge - frame->frameWidth(), 8);
  auto* question = new QLabel(tr("Save above file to disk?"));
  question->setObjectName(QStringLiteral("lblQuestion"));
  column->addWidget(question);
  column->addLayout(MakeAnswers());
  column->addLayout(MakePictureButtons());
  column->addStretch(1);
  return frame;
}

QLayout* frmMyMsgBox::MakeAnswers() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const QString& caption, const QString& toolTip, auto handler) {
    QPushButton* button = DialogButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, handler);
    row->addWidget(button);
    return button;
  };
  QPushButton* yes = add("cmdYes", tr("&Yes"), tr("Save file"), &frmMyMsgBox::cmdYes_Click);
  add("cmdNo", tr("&No"), tr("Do NOT save file"), &frmMyMsgBox::cmdNo_Click);
  add("cmdCancel", tr("&Cancel"), tr("Cancel operation"), &frmMyMsgBox::cmdCancel_Click);
  yes->setDefault(true);

  auto* confirm = new QCheckBox(tr("Confirm no save of file"));
  confirm->setObjectName(QStringLiteral("chkDecisionConfirmNoSave"));
  confirm->setToolTip(tr("Ask once more before the file is left without saving"));
  confirm->setChecked(m_services.settings.messageBoxDecision == 1);
  connect(confirm, &QCheckBox::toggled, this, &frmMyMsgBox::chkDecisionConfirmNoSave_Click);
  row->addSpacing(kEdge);
  row->addWidget(confirm);
  row->addStretch(1);
  return row;
}

QLayout* frmMyMsgBox::MakePictureButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const char* icon, const QString& toolTip, auto handler) {
    auto* button = new CommandButton(QString::fromLatin1(icon), toolTip, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAutoDefault(true);  // Enter presses it, not "Yes"
    button->setFixedSize(kPictureButtonWidth, kPictureButtonHeight);
    connect(button, &QPushButton::clicked, this, handler);
    row->addWidget(button);
  };
  add("cmdSaveFile", "_SaveAs_32x32", tr("Save file directly to disk"), &frmMyMsgBox::mnuSave_Click);
  auto* shortcut = new QLabel(tr("[ Shortcut = Alt-S ]"));
  shortcut->setObjectName(QStringLiteral("lblShortcut"));
  row->addWidget(shortcut);
  row->addSpacing(kEdge);
  add("cmdInfo", "file-info", tr("More info on current file"), &frmMyMsgBox::mnuFileInfo_Click);
  add("cmdTrawler", "Trawler_32x32", tr("Mini Trawler"), &frmMyMsgBox::mnuTrawler_Click);
  add("cmdExplorer", "Explorer_32x32", tr("Windows Explorer"), &frmMyMsgBox::mnuExplorer_Click);
  row->addStretch(1);
  return row;
}

void frmMyMsgBox::ShowDetails() {
  m_fileName->setText(m_details.name);
  m_filePath->setText(m_details.folder);
  m_fileSize->setText(m_details.size);
  m_fileDate->setText(m_details.date +
                      QStringLiteral("     [ now: %1, %2 ]").arg(m_details.nowDate, m_details.nowTime));
  for (QLabel* label : {m_fileSize, m_fileDate}) label->setAccessibleDescription(label->text());
}

// The height stays as it is and the width has a least value, both with the frame that the desktop puts around.
void frmMyMsgBox::KeepSize() {
  const QSize frame(PixelsFromTwips(m_geometry.Width()) - width(), PixelsFromTwips(m_geometry.Height()) - height());
  setMinimumWidth(PixelsFromTwips(kLeastWidth) - frame.width());
  m_geometry.FitFrame();
  setFixedHeight(std::max(PixelsFromTwips(kHeight) - frame.height(), layout()->minimumSize().height()));
}

// The frame is known once the desktop has shown the window.
void frmMyMsgBox::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) KeepSize();
}

void frmMyMsgBox::done(int code) {
  m_services.settings.messageBoxWidth = static_cast<std::int32_t>(std::lround(m_geometry.Width()));
  QDialog::done(code);
}

void frmMyMsgBox::Decide(DocumentDecision decision) {
  m_result = decision;
  accept();
}

void frmMyMsgBox::cmdNo_Click() {
  if (m_services.settings.messageBoxDecision == 1) {
    const MessageAnswer answer = m_services.messages.Show({.text = QStringLiteral("Unload file without saving?"),
                                                           .icon = MessageIcon::Question,
                                                           .buttons = MessageButtons::YesNo,
                                                           .defaultButton = MessageAnswer::No});
    if (answer != MessageAnswer::Yes) return;
  }
  Decide(DocumentDecision::Discard);
}

void frmMyMsgBox::chkDecisionConfirmNoSave_Click(bool checked) {
  m_services.settings.messageBoxDecision = checked ? 1 : 0;
}

void frmMyMsgBox::mnuFileInfo_Click() {
  frmTxtInfo({m_services.messages, m_services.clipboard, m_services.shell, m_services.looks}, m_details, this).exec();
}

void frmMyMsgBox::mnuTrawler_Click() {
  m_services.programs.StartMiniTrawler(QString());
}

void frmMyMsgBox::mnuExplorer_Click() {
  QString folder = m_filePath->text();
  m_services.programs.ExploreFolder(folder, winId());
}

DocumentDecision FileDetailsQuestion::Ask(const QString& path) {
  frmMyMsgBox box(m_services, path, QApplication::activeWindow());
  box.exec();
  return box.Result();
}

}  // namespace snipdeck

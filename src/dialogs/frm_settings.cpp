#include "dialogs/frm_settings.h"

#include <cmath>

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/command_button.h"
#include "platform/qt/dialogs/dialog_button.h"

namespace snipdeck {

namespace {

constexpr int kFieldWidth = 320;  // pixels
constexpr QSize kBrowseSize(36, 28);
constexpr std::int16_t kYes = 1;
constexpr std::int16_t kBold = -1;

QCheckBox* MakeCheck(const char* name, const QString& caption, const QString& toolTip, std::int16_t value) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(QString::fromLatin1(name));
  box->setToolTip(toolTip);
  box->setChecked(value == kYes);
  return box;
}

std::int16_t ValueOf(bool checked) {
  return checked ? kYes : 0;
}

/// A font as three settings keep it.
struct FontSetting {
  QString& name;
  std::int16_t& size;
  std::int16_t& bold;

  FontChoice Get() const { return {name, static_cast<double>(size), bold != 0}; }
  void Set(const FontChoice& font) const {
    name = font.name;
    size = static_cast<std::int16_t>(std::nearbyint(font.points));
    bold = font.bold ? kBold : 0;
  }
};

}  // namespace

frmSettings::frmSettings(const SettingsDialogServices& services, QWidget* owner)
    : QDialog(owner), m_services(services) {
  setObjectName(QStringLiteral("frmSettings"));
  setWindowTitle(tr("Settings"));
  auto* column = new QVBoxLayout(this);
  column->addWidget(MakeStartGroup());
  column->addWidget(MakeLooksGroup());
  column->addWidget(MakeFilesGroup());
  QPushButton* close = DialogButton("cmdClose", tr("&Close"), tr("Close this window; every change is already kept"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  column->addStretch(1);
  column->addWidget(close, 0, Qt::AlignRight);
  m_services.looks.ApplyControlFont(*this);
}

QWidget* frmSettings::MakeStartGroup() {
  const Settings& settings = m_services.settings;
  auto* group = new QGroupBox(tr("Start"));
  auto* column = new QVBoxLayout(group);
  QCheckBox* cumulative = MakeCheck("chkStartWithCumulativeBox", tr("Always start with cumulative clipboard text box"),
                                    tr("Show the cumulative text instead of the twelve boxes, now and at every start.\n"
                                       "Copies are then also collected while a box is enlarged."),
                                    settings.startWithCumulative);
  QCheckBox* load = MakeCheck("chkAutoLoadLastFile", tr("Autoload last used file into cumulative clipboard text box"),
                              tr("Load the file that was last shown in the cumulative text box at the next start,\n"
                                 "if the program starts with that box."),
                              settings.loadLastFile);
  column->addWidget(cumulative);
  column->addWidget(load);
  connect(cumulative, &QCheckBox::toggled, this, &frmSettings::chkStartWithCumulativeBox_Click);
  connect(load, &QCheckBox::toggled, this, &frmSettings::chkAutoLoadLastFile_Click);
  return group;
}

QWidget* frmSettings::MakeLooksGroup() {
  auto* group = new QGroupBox(tr("Fonts and colours"));
  auto* grid = new QGridLayout(group);
  QCheckBox* use = MakeCheck("chkUseControlFonts", tr("User control font?"),
                             tr("Show buttons, labels and lists in the control font that is chosen here"),
                             m_services.settings.useControlFonts);
  connect(use, &QCheckBox::toggled, this, &frmSettings::chkUseControlFonts_Click);
  grid->addWidget(use, 0, 0, 1, 3);
  int place = 0;
  const auto add = [&](const char* name, const QString& caption, const QString& toolTip, auto handler) {
    QPushButton* button = DialogButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, handler);
    grid->addWidget(button, 1, place++);
  };
  add("cmdControlFont", tr("Contro&l font"),
      tr("Choose the font of buttons, labels and lists;\nit shows where the box above is ticked"),
      &frmSettings::cmdControlFont_Click);
  add("cmdButtonColour", tr("&Button colour"), tr("Choose the colour of the main window and its buttons"),
      &frmSettings::cmdButtonColour_Click);
  add("cmdSidebarFont", tr("Sidebar font"), tr("Choose the font of the sidebar's rows"),
      &frmSettings::cmdSidebarFont_Click);
  return group;
}

QWidget* frmSettings::MakeFilesGroup() {
  auto* group = new QGroupBox(tr("Programs and files"));
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(1, 1);
  m_browser = AddField(*grid, "txtCustomBrowser", tr("Your browser"), m_services.settings.customBrowser,
                       tr("The program that \"Your browser\" starts"));
  AddBrowse(*grid, "cmdCustomBrowser", tr("Look for the browser that the program starts"),
            &frmSettings::cmdCustomBrowser_Click);
  m_notes = AddField(*grid, "txtTopicalNotesFile", tr("Topical notes file"), m_services.settings.topicalNotesFile,
                     tr("The file that \"Topical notes\" opens"));
  AddBrowse(*grid, "cmdTopicalNotes", tr("Look for the file that \"Topical notes\" opens"),
            &frmSettings::cmdTopicalNotes_Click);
  return group;
}

QLineEdit* frmSettings::AddField(QGridLayout& grid, const char* name, const QString& caption, const QString& file,
                                 const QString& about) {
  auto* edit = new QLineEdit(file);
  edit->setObjectName(QString::fromLatin1(name));
  edit->setAccessibleName(caption);
  edit->setToolTip(tr("%1;\nonly the button beside it changes this").arg(about));
  edit->setMinimumWidth(kFieldWidth);
  auto* label = new QLabel(caption);
  label->setBuddy(edit);
  const int row = grid.rowCount();
  grid.addWidget(label, row, 0);
  grid.addWidget(edit, row, 1);
  return edit;
}

void frmSettings::AddBrowse(QGridLayout& grid, const char* name, const QString& toolTip,
                            void (frmSettings::*handler)()) {
  auto* browse = new CommandButton(QStringLiteral("open-file"), toolTip, this);
  browse->setObjectName(QString::fromLatin1(name));
  browse->setFocusPolicy(Qt::StrongFocus);
  browse->setAutoDefault(true);  // Enter presses it, not "Close"
  browse->setFixedSize(kBrowseSize);
  connect(browse, &QPushButton::clicked, this, handler);
  grid.addWidget(browse, grid.rowCount() - 1, 2);
}

void frmSettings::chkAutoLoadLastFile_Click(bool checked) {
  m_services.settings.loadLastFile = ValueOf(checked);
}

void frmSettings::chkStartWithCumulativeBox_Click(bool checked) {
  m_services.settings.startWithCumulative = ValueOf(checked);
  BoxSet& boxes = m_services.boxes;
  if (!checked) {
    boxes.Frame2->hide();
    boxes.ShowAllBoxes();
    boxes.FocusText();
    return;
  }
  boxes.HideAllBoxes();
  boxes.Frame2->show();
  boxes.Frame2->raise();
  boxes.Frame2->SetCaption(QStringLiteral(" Cumulative clipboard textbox "));
}

void frmSettings::chkUseControlFonts_Click(bool checked) {
  m_services.settings.useControlFonts = ValueOf(checked);
}

void frmSettings::cmdControlFont_Click() {
  Settings& settings = m_services.settings;
  const FontSetting font{settings.controlFontName, settings.controlFontSize, settings.controlFontBold};
  const auto chosen = m_services.fonts.ChooseFont(font.Get());
  if (!chosen) return;
  font.Set(*chosen);
  m_services.looks.ApplyControlFont(*this);
}

void frmSettings::cmdSidebarFont_Click() {
  Settings& settings = m_services.settings;
  const FontSetting font{settings.sidebarFontName, settings.sidebarFontSize, settings.sidebarFontBold};
  const auto chosen = m_services.fonts.ChooseFont(font.Get());
  if (!chosen) return;
  font.Set(*chosen);
  m_services.sidebar.ApplyFont();
}

void frmSettings::cmdButtonColour_Click() {
  m_services.looks.ChooseButtonColour();
}

void frmSettings::Browse(QString& setting, QLineEdit& field, const QString& title, const QList<FileFilter>& filters) {
  const QString chosen =
      m_services.files.OpenFile({.title = title, .fileName = setting, .filters = filters, .defaultExtension = {}});
  if (chosen.isEmpty()) return;
  setting = chosen;
  field.setText(chosen);
}

void frmSettings::cmdCustomBrowser_Click() {
  Browse(m_services.settings.customBrowser, *m_browser, QStringLiteral("Get viewer for internet files (.HTM(L), etc.)"),
         {{QStringLiteral("Programs (*.exe)"), QStringLiteral("*.exe")}});
}

void frmSettings::cmdTopicalNotes_Click() {
  Browse(m_services.settings.topicalNotesFile, *m_notes, QStringLiteral("Get \"Topical Notes\" file"),
         {{QStringLiteral("RTF files (*.rtf)"), QStringLiteral("*.rtf")},
          {QStringLiteral("Text files (*.txt)"), QStringLiteral("*.txt")},
          {QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}});
}

}  // namespace snipdeck

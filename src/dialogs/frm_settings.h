#pragma once

#include <QDialog>

#include "capture/box_set.h"
#include "layout/fonts_and_colours.h"
#include "navigation/sidebar.h"
#include "platform/file_dialogs.h"

class QCheckBox;
class QGridLayout;
class QLineEdit;
class QVBoxLayout;

namespace snipdeck {

/// What the settings dialog changes and asks. Everything outlives the dialog.
struct SettingsDialogServices {
  Settings& settings;
  BoxSet& boxes;
  Sidebar& sidebar;
  FontsAndColours& looks;
  FontColourDialogs& fonts;
  FileDialogs& files;
};

/// The options that have no command of their own. Every change is kept at once, and shows at once where there is
/// something to see.
class frmSettings : public QDialog {
  Q_OBJECT

 public:
  frmSettings(const SettingsDialogServices& services, QWidget* owner);

 private:
  void chkAutoLoadLastFile_Click(bool checked);
  void chkStartWithCumulativeBox_Click(bool checked);
  void chkUseControlFonts_Click(bool checked);
  void cmdControlFont_Click();
  void cmdButtonColour_Click();
  void cmdSidebarFont_Click();
  void cmdCustomBrowser_Click();
  void cmdTopicalNotes_Click();

  QWidget* MakeStartGroup();
  QWidget* MakeLooksGroup();
  QWidget* MakeFilesGroup();
  /// A row of its own, with the name of a setting's file.
  QLineEdit* AddField(QGridLayout& grid, const char* name, const QString& caption, const QString& file,
                      const QString& about);
  /// At the end of the last row.
  void AddBrowse(QGridLayout& grid, const char* name, const QString& toolTip, void (frmSettings::*handler)());
  void Browse(QString& setting, QLineEdit& field, const QString& title, const QList<FileFilter>& filters);

  SettingsDialogServices m_services;
  QLineEdit* m_browser;
  QLineEdit* m_notes;
};

}  // namespace snipdeck

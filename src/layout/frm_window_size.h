#pragma once

#include <QDialog>

#include "platform/settings.h"

class QListWidget;

namespace snipdeck {

/// The dialog in which the user picks a place or a percentage for the main window.
class frmWindowSize : public QDialog {
  Q_OBJECT

 public:
  /// What exec() gives.
  enum Choice { kCancelled = 0, kPreset = 1, kPercent = 2 };

  /// The entries that the settings name are selected; a choice is kept there. `settings` outlives the dialog.
  frmWindowSize(Settings& settings, QWidget* owner);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeLists();
  QWidget* MakeButtons();
  void FollowKeyboard(QListWidget& list, bool isHere);
  void cmdOk_Click();
  void cmdPercent_Click();

  Settings& m_settings;
  QListWidget* m_presets;
  QListWidget* m_percents;
};

}  // namespace snipdeck

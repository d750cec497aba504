#pragma once

#include <QMainWindow>

#include "capture/box_interaction.h"
#include "capture/box_set.h"
#include "capture/clipboard_capture.h"
#include "capture/combined_views.h"
#include "platform/change_watch.h"
#include "platform/clipboard.h"
#include "platform/message_box.h"

namespace snipdeck {

/// The outside world as the main window sees it. Everything outlives the window.
struct MainWindowServices {
  ChangeWatch& ctlClipboard1;
  const Clipboard& clipboard;
  MessageBox& messages;
};

/// The main window: it owns the controls and the classes that do the work; every event handler is one call into one of
/// them.
class frmSnipdeck : public QMainWindow {
  Q_OBJECT

 public:
  explicit frmSnipdeck(const MainWindowServices& services);
  ~frmSnipdeck() override;

  BoxSet& Boxes() { return *m_boxes; }

  void ctlClipboard1_Changed();
  void mnuCumulative_Click();
  void mnuExit_Click();
  void mnuViewBoxLarge_Click();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BuildMenus();
  void PlaceFixedControls();
  void SetTabOrder();
  void Form_Activate();
  void Form_Resize();
  void KeepMinimumSize();

  MainWindowServices m_services;
  /// Setting: start with the cumulative box (1 = yes).
  std::int16_t m_startWithCumulative = 0;
  bool FirstShow = true;
  QWidget* m_client;
  BoxSet* m_boxes;
  ClipboardCapture m_capture;
  BoxInteraction m_interaction;
  CombinedViews m_views;
};

}  // namespace snipdeck

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <QDialog>

#include "platform/qt/qt_window_geometry.h"

class QMenu;

namespace snipdeck {

class CommandButton;

/// Where a window was when it was last closed, in twips: four values of the settings, 0 where it never was.
struct KeptPlacement {
  std::int32_t& left;
  std::int32_t& top;
  std::int32_t& width;
  std::int32_t& height;
};

/// Corrects a window that was just given its kept placement, so that it lies on the screen.
using KeepOnScreenStep = std::function<void(WindowGeometry&, const KeptPlacement&)>;

/// A place inside the window, in twips.
struct TwipPlace {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// One command of a window: a button of its row and an entry of its menu.
struct WindowCommand {
  const char* button;
  const char* icon;
  const char* toolTip;
  /// In twips.
  double left;
  double width;
  const char* entry;
  const char* caption;
};

/// What the two windows that show the clipboard have in common: a row of buttons with a menu of the same commands, and
/// a placement that is kept from one opening to the next.
class ClipboardWindow : public QDialog {
  Q_OBJECT

 public:
  void done(int result) override;

 protected:
  ClipboardWindow(const QString& name, const KeptPlacement& kept, QWidget* parent);

  /// What lies below the menu bar.
  QWidget& Client() { return *m_client; }
  /// Adds a command at the end of the menu.
  CommandButton* AddCommand(const WindowCommand& command, const std::function<void()>& handler);
  /// Once all commands are there: Tab goes through their buttons from left to right.
  void SetTabOrder();
  /// Puts the window at its kept placement.
  void Place(const KeepOnScreenStep& keepOnScreen);
  /// No smaller than this, frame included, in twips.
  void SetSmallest(double width, double height);
  /// The inner size in twips.
  double ScaleWidth() const;
  double ScaleHeight() const;
  static void Apply(QWidget& widget, const TwipPlace& place);

  virtual void Form_Activate() = 0;
  virtual void Form_Resize() = 0;

  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void KeepSmallest();

  KeptPlacement m_kept;
  QWidget* m_client;
  QMenu* m_menu;
  std::vector<CommandButton*> m_buttons;
  QtWindowGeometry m_geometry;
  QSize m_smallest;
};

}  // namespace snipdeck

#pragma once

#include <QPointer>
#include <QWidget>

namespace snipdeck {

class RichTextControl;

/// What a ruler, a button bar and a status bar have in common: each shows the state of one control at a time. Changes
/// of the control are shown once a turn of the event loop, however many there were, and not at all while nobody sees
/// them.
class ControlCompanion : public QWidget {
  Q_OBJECT

 public:
  explicit ControlCompanion(QWidget* parent) : QWidget(parent) {}

  /// Follows `control` from now on, and no longer the one before; nullptr follows none. The control calls this.
  void Follow(RichTextControl* control);

 protected:
  /// The control that is followed; nullptr when there is none any more.
  RichTextControl* Control() const { return m_control; }
  /// Asks for a Refresh soon.
  void ScheduleRefresh();
  /// Shows the control's present state.
  virtual void Refresh() = 0;

  void showEvent(QShowEvent* event) override;

 private:
  void FollowLayout();
  void RefreshNow();

  QPointer<RichTextControl> m_control;
  bool m_scheduled = false;
};

}  // namespace snipdeck

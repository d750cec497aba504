#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/screen.h"

namespace snipdeck {

/// The screen that a window of Qt is on; the primary one while there is no window.
class QtScreen : public Screen {
 public:
  /// The window to go by; nullptr for none.
  void Follow(const QWidget* window) { m_window = window; }

  WorkArea Area() const override;

 private:
  QPointer<const QWidget> m_window;
};

}  // namespace snipdeck

#pragma once

#include <QWidget>

#include "platform/window_geometry.h"

namespace snipdeck {

/// The place of a window of Qt. The desktop tells how wide a window's frame is only after it has been shown; until then
/// the frame counts as nothing, and FitFrame() takes it into account afterwards.
class QtWindowGeometry : public WindowGeometry {
 public:
  /// `window` outlives this.
  explicit QtWindowGeometry(QWidget& window) : m_window(window) {}

  double Left() const override;
  double Top() const override;
  double Width() const override;
  double Height() const override;
  void SetLeft(double twips) override;
  void SetTop(double twips) override;
  void SetWidth(double twips) override;
  void SetHeight(double twips) override;

  /// Once, when the frame is known: takes its width from sizes that were set before.
  void FitFrame();

 private:
  QSize Frame() const;
  QPoint Corner() const;
  const QWindow* Shown() const;

  QWidget& m_window;
  bool m_sizedWithoutFrame = false;
};

}  // namespace snipdeck

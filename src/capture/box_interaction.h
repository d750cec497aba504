#pragma once

#include "capture/box_set.h"

namespace snipdeck {

/// How the user works in the boxes: enlarging one, writing it back.
class BoxInteraction : public QObject {
  Q_OBJECT

 public:
  explicit BoxInteraction(BoxSet& boxes);

  /// Enlarges the box last worked in, or returns to the boxes without writing back.
  void ToggleFullScreen();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WriteBack();

  BoxSet& m_boxes;
};

}  // namespace snipdeck

#pragma once

namespace snipdeck {

/// The desktop without its panels, in twips.
struct WorkArea {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// The screen that the main window is on.
class Screen {
 public:
  virtual ~Screen() = default;

  /// Read afresh at every call: panels come and go, and the window moves between screens.
  virtual WorkArea Area() const = 0;
};

}  // namespace snipdeck

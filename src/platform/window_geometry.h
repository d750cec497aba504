#pragma once

namespace snipdeck {

/// Where a window stands on the desktop, frame and title bar included, in twips. A value that the window refuses, such as
/// a width below its smallest, is adjusted by it: what it took is read back.
class WindowGeometry {
 public:
  virtual ~WindowGeometry() = default;

  virtual double Left() const = 0;
  virtual double Top() const = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void SetLeft(double twips) = 0;
  virtual void SetTop(double twips) = 0;
  virtual void SetWidth(double twips) = 0;
  virtual void SetHeight(double twips) = 0;
};

}  // namespace snipdeck

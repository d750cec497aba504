#pragma once

#include <algorithm>

#include <QList>

#include "platform/window_geometry.h"

namespace snipdeck {

/// A window that takes every value, but none below its smallest size.
class FakeWindow : public WindowGeometry {
 public:
  double left = 0, top = 0, width = 0, height = 0;
  double smallestWidth = 0, smallestHeight = 0;

  FakeWindow(double l, double t, double w, double h) : left(l), top(t), width(w), height(h) {}

  double Left() const override { return left; }
  double Top() const override { return top; }
  double Width() const override { return width; }
  double Height() const override { return height; }
  void SetLeft(double twips) override { left = twips; }
  void SetTop(double twips) override { top = twips; }
  void SetWidth(double twips) override { width = std::max(twips, smallestWidth); }
  void SetHeight(double twips) override { height = std::max(twips, smallestHeight); }

  QList<double> Place() const { return {left, top, width, height}; }
};

}  // namespace snipdeck

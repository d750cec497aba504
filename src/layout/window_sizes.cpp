#include "layout/window_sizes.h"

#include <cmath>

namespace snipdeck {

namespace {

constexpr std::array kTenths = {3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 9.5};
static_assert(kTenths.size() == WindowSizes::kPercents.size());

double HalfDown(double difference) {
  return std::floor(std::nearbyint(difference) / 2);
}

}  // namespace

// The halves count the distance of the work area from the edge of the screen as part of the screen.
void WindowSizes::ApplyPreset(int index, WindowGeometry& window) const {
  const auto [left, top, width, height] = m_area;
  const double halfHeight = (height - top) / 2 + top;
  const double halfWidth = (width - left) / 2 + left;
  switch (index) {
    case 0:
      return Fill(window, top, left, height, width);
    case 1:
      return Fill(window, top, left, height, halfWidth);
    case 2:
      return Fill(window, top, left, halfHeight, width);
    case 3:
      return Fill(window, top, halfWidth, height, halfWidth);
    case 4:
      return Fill(window, halfHeight, left, halfHeight, width);
    case 5:
      window.SetTop(CentredTop(window));
      return window.SetLeft(CentredLeft(window));
    case 6:
      window.SetTop(top);
      window.SetHeight(height);
      return window.SetLeft(CentredLeft(window));
    default:
      return;
  }
}

void WindowSizes::ApplyPercent(int index, WindowGeometry& window) const {
  if (index < 0 || index >= static_cast<int>(kTenths.size())) return;
  const double tenths = kTenths[static_cast<size_t>(index)];
  window.SetHeight(m_area.height / 10 * tenths);
  window.SetWidth(m_area.width / 10 * tenths);
  window.SetTop(CentredTop(window));
  window.SetLeft(CentredLeft(window));
}

void WindowSizes::Fill(WindowGeometry& window, double top, double left, double height, double width) const {
  window.SetTop(top);
  window.SetLeft(left);
  window.SetHeight(height);
  window.SetWidth(width);
}

double WindowSizes::CentredTop(const WindowGeometry& window) const {
  return m_area.top + HalfDown(m_area.height - window.Height());
}

double WindowSizes::CentredLeft(const WindowGeometry& window) const {
  return m_area.left + HalfDown(m_area.width - window.Width());
}

}  // namespace snipdeck

#include "layout/keep_on_screen.h"

#include <algorithm>
#include <cmath>

namespace snipdeck {

namespace {

constexpr double kMainMargin = 300;
constexpr double kOtherMargin = 600;
constexpr double kFirstWidth = 4800;
constexpr double kFirstHeight = 3200;
constexpr double kGrip = 1500;  // of the title bar, enough to drag the window by

std::int32_t Whole(double twips) {
  return static_cast<std::int32_t>(std::nearbyint(twips));
}

void FillInWhatWasNeverSaved(const WorkArea& area, WindowGeometry& window, const SavedPlacement& saved, double margin) {
  if (saved.left == 0) window.SetLeft(area.left + margin);
  if (saved.top == 0) window.SetTop(area.top + margin);
  if (saved.width == 0) window.SetWidth(kFirstWidth);
  if (saved.height == 0) window.SetHeight(kFirstHeight);
}

void ShrinkToArea(const WorkArea& area, WindowGeometry& window, SavedPlacement& saved, double margin) {
  if (saved.width > area.width) {
    window.SetLeft(area.left + margin);
    window.SetWidth(area.width - 2 * margin);
    saved.left = Whole(window.Left());
    saved.width = Whole(window.Width());
  }
  if (saved.height > area.height) {
    window.SetTop(area.top + margin);
    window.SetHeight(area.height - 2 * margin);
    saved.top = Whole(window.Top());
    saved.height = Whole(window.Height());
  }
}

void MoveBackInside(const WorkArea& area, WindowGeometry& window, const SavedPlacement& saved, double margin) {
  if (double{} + saved.left + saved.width > area.width) window.SetLeft(area.left + area.width - saved.width - margin);
  if (double{} + saved.top + saved.height > area.height) window.SetTop(area.top + area.height - saved.height - margin);
}

}  // namespace

void KeepOnScreen(const WorkArea& area, WindowGeometry& window, PlacedWindow which, SavedPlacement& saved) {
  const double margin = which == PlacedWindow::Main ? kMainMargin : kOtherMargin;
  FillInWhatWasNeverSaved(area, window, saved, margin);
  ShrinkToArea(area, window, saved, margin);
  MoveBackInside(area, window, saved, margin);
}

void KeepReachable(const WorkArea& area, WindowGeometry& window) {
  const double right = area.left + area.width;
  const double bottom = area.top + area.height;
  const double top = std::clamp(window.Top(), area.top, std::max(area.top, bottom - kGrip));
  if (top != window.Top()) window.SetTop(top);
  if (window.Left() + window.Width() < area.left + kGrip) window.SetLeft(area.left);
  if (window.Left() > right - kGrip) window.SetLeft(right - kGrip);
}

}  // namespace snipdeck

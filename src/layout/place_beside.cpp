#include "layout/place_beside.h"

#include "layout/keep_on_screen.h"

namespace snipdeck {

namespace {

constexpr double kLeastFree = 5000;
constexpr int kFill = 1;

bool HasRoom(double free, MessageBox& messages) {
  if (free > kLeastFree) return true;
  messages.Show({.text = QStringLiteral("Not enough space to move window as requested.\r\n\r\n"
                                        "Minimum required: 5,000 pixels."),
                 .icon = MessageIcon::Exclamation});
  return false;
}

}  // namespace

void PlaceLeftOf(const WorkArea& area, MessageBox& messages, const WindowGeometry& reference, WindowGeometry& moved,
                 int fill) {
  if (!HasRoom(reference.Left() - area.left, messages)) return;
  moved.SetTop(reference.Top());
  moved.SetHeight(reference.Height());
  if (fill == kFill) {
    moved.SetLeft(area.left);
    moved.SetWidth(reference.Left() - area.left);
  } else {
    moved.SetLeft(reference.Left() - moved.Width());
  }
  KeepReachable(area, moved);
}

void PlaceRightOf(const WorkArea& area, MessageBox& messages, const WindowGeometry& reference, WindowGeometry& moved,
                  int fill) {
  if (!HasRoom(area.width - (reference.Left() + reference.Width()), messages)) return;
  moved.SetTop(reference.Top());
  moved.SetHeight(reference.Height());
  moved.SetLeft(reference.Left() + reference.Width());
  if (fill == kFill) moved.SetWidth(area.width - (moved.Left() - area.left));
  KeepReachable(area, moved);
}

}  // namespace snipdeck

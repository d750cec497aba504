#include "layout/main_window_layout.h"

#include <cmath>

namespace snipdeck {

namespace {

constexpr int kRows = 6;
constexpr double kGap = 20;  // between rows, and on either side of the middle between the columns
constexpr double kSidebarLeft = 120;
constexpr double kSidebarGap = 80;
constexpr double kSidebarGridTop = 740;
constexpr double kBottomMargin = 60;
constexpr double kRowsTaken = 720;  // of the client height: the grid's top, five gaps and the bottom margin
constexpr double kRightMargin = 80;
constexpr double kPanelHeightTaken = 640;
constexpr double kStatusBarHeight = 270;

void PlaceBoxes(std::array<TwipRect, 12>& boxes, double clientWidth, double clientHeight, double gridLeft) {
  const double width = (clientWidth - gridLeft) / 2 - kGap;
  const double height = (clientHeight - kRowsTaken) / kRows;
  const double rightColumn = (clientWidth + gridLeft) / 2 + kGap;
  for (int row = 0; row < kRows; ++row) {
    const double top = MainWindowLayout::kBoxOneTop + row * (height + kGap);
    boxes[static_cast<size_t>(row)] = {gridLeft, top, width, height};
    boxes[static_cast<size_t>(row + kRows)] = {rightColumn, top, width, height};
  }
}

PanelPlacement PlacePanel(const TwipRect& panel, double buttonBarLeft) {
  const double width = panel.width - 230;
  const double textTop = 1020;
  const double textHeight = panel.height - textTop - kStatusBarHeight - 36;
  return {.panel = panel,
          .buttonBar = {buttonBarLeft, 240, width, 380},
          .ruler = {120, 640, width, 324},
          .marginStrip = {80, textTop, 165, textHeight},
          .textControl = {240, textTop, width, textHeight},
          .statusBar = {40, panel.height - kStatusBarHeight - 40, width, kStatusBarHeight}};
}

}  // namespace

double MainWindowLayout::GridLeft(bool sidebarShown, double sidebarWidth) {
  return sidebarShown ? std::nearbyint(sidebarWidth + kSidebarLeft + kSidebarGap) : kGridLeft;
}

double MainWindowLayout::SidebarGridHeight(double clientHeight) {
  return clientHeight - kSidebarGridTop - kBottomMargin;
}

MainWindowPlacement MainWindowLayout::Place(double clientWidth, double clientHeight, double gridLeft,
                                            double boxOneTop) {
  MainWindowPlacement placement;
  const TwipRect panel{gridLeft, boxOneTop, clientWidth - gridLeft - kRightMargin, clientHeight - kPanelHeightTaken};
  placement.frame1 = PlacePanel(panel, 80);
  placement.frame2 = PlacePanel(panel, 120);
  placement.frame2.statusBar.width = panel.width;
  PlaceBoxes(placement.boxes, clientWidth, clientHeight, gridLeft);
  return placement;
}

}  // namespace snipdeck

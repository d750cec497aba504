#include "editor/editor_measures.h"

#include <algorithm>
#include <cmath>

namespace snipdeck {

namespace {

/// Half of a difference, rounded to a whole number first; the halving then drops the fraction.
double HalfOf(double difference) {
  return std::trunc(std::nearbyint(difference) / 2);
}

}  // namespace

TwipRect PlaceOfText(double clientWidth, double clientHeight, int viewMode) {
  using namespace editor_measures;
  const double height = std::max(0.0, clientHeight - kTextTop - kStatusBarHeight);
  if (viewMode == 2) return {kTextLeftInPageView, kTextTop, clientWidth, height};
  return {kTextLeftInNormalView, kTextTop, std::max(0.0, clientWidth - kTextLeftInNormalView), height};
}

TwipRect CentredOver(const TwipRect& window) {
  const double width = window.width / 10 * 9.5;
  const double height = window.height / 10 * 9.5;
  return {window.left + HalfOf(window.width - width), window.top + HalfOf(window.height - height), width, height};
}

}  // namespace snipdeck

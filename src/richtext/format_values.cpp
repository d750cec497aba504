#include "richtext/format_values.h"

#include <algorithm>
#include <cmath>

#include <QTextCharFormat>

namespace snipdeck {
namespace {

constexpr double kPointsPerPixel = 0.75;
constexpr double kMaxTwips = 1e6;

double OwnPointSize(const QFont& font) {
  return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * kPointsPerPixel;
}

}  // namespace

int TwipsFromLength(double pixels) {
  return static_cast<int>(std::lround(std::clamp(pixels * 15.0, -kMaxTwips, kMaxTwips)));
}

QStringList FontFamilies(const QTextCharFormat& format, const QFont& defaults) {
  const QStringList families = format.fontFamilies().toStringList();
  return families.isEmpty() || families.first().isEmpty() ? defaults.families() : families;
}

double PointSize(const QTextCharFormat& format, const QFont& defaults) {
  if (format.hasProperty(QTextFormat::FontPointSize)) return format.fontPointSize();
  if (format.hasProperty(QTextFormat::FontPixelSize)) {
    return format.intProperty(QTextFormat::FontPixelSize) * kPointsPerPixel;
  }
  return OwnPointSize(defaults);
}

}  // namespace snipdeck

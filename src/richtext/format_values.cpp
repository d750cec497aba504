#include "richtext/format_values.h"

#include <algorithm>
#include <cmath>

#include <QTextBlock>
#include <QTextList>

#include "richtext/format_properties.h"

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

bool HasPointSize(const QTextCharFormat& format) {
  return format.hasProperty(QTextFormat::FontPointSize) || format.hasProperty(QTextFormat::FontPixelSize);
}

double PointSize(const QTextCharFormat& format, const QFont& defaults) {
  if (format.hasProperty(QTextFormat::FontPointSize)) return format.fontPointSize();
  if (format.hasProperty(QTextFormat::FontPixelSize)) {
    return format.intProperty(QTextFormat::FontPixelSize) * kPointsPerPixel;
  }
  return OwnPointSize(defaults);
}

double TabOrigin(const QTextBlockFormat& format, int steps, double stepWidth) {
  return format.leftMargin() + format.textIndent() + steps * stepWidth;
}

QList<QTextOption::Tab> ShiftedTabs(QList<QTextOption::Tab> tabs, double pixels) {
  for (QTextOption::Tab& tab : tabs) tab.position += pixels;
  return tabs;
}

int ListSteps(const QTextBlock& block) {
  const QTextList* const list = block.textList();
  return block.blockFormat().indent() + (list ? list->format().indent() : 0);
}

ListPlace PlaceInList(const QTextBlock& block) {
  const QTextList* const list = block.textList();
  if (!list) return {};
  const QTextListFormat format = list->format();
  const int level = format.hasProperty(kListLevel) ? format.intProperty(kListLevel) : format.indent() - 1;
  // Lists without an id of the text's own are told apart by Qt's, kept clear of the others.
  const int id = format.hasProperty(kListId) ? format.intProperty(kListId) : -1 - list->objectIndex();
  return {std::clamp(level, 0, 8), id};
}

}  // namespace snipdeck

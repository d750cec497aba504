#include "richtext/rtf/rtf_page.h"

#include <QTextFormat>

#include "richtext/format_properties.h"

namespace snipdeck {

void RtfPage::Store(QTextFrameFormat& target) const {
  const auto set = [&](FormatProperty property, int PageGeometry::*value, int least) {
    const int said = section.*value >= least ? section.*value : document.*value;
    if (said >= least) target.setProperty(property, said);
  };
  set(kPageWidth, &PageGeometry::width, 1);
  set(kPageHeight, &PageGeometry::height, 1);
  set(kPageMarginLeft, &PageGeometry::left, 0);
  set(kPageMarginTop, &PageGeometry::top, 0);
  set(kPageMarginRight, &PageGeometry::right, 0);
  set(kPageMarginBottom, &PageGeometry::bottom, 0);
}

}  // namespace snipdeck

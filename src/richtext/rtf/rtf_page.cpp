#include "richtext/rtf/rtf_page.h"

#include <QTextFormat>

#include "richtext/format_properties.h"

namespace snipdeck {

void RtfPage::Store(QTextFrameFormat& target) const {
  const auto set = [&](FormatProperty property, int ofSection, int ofDocument) {
    const int value = ofSection > 0 ? ofSection : ofDocument;
    if (value > 0) target.setProperty(property, value);
  };
  set(kPageWidth, section.width, document.width);
  set(kPageHeight, section.height, document.height);
  set(kPageMarginLeft, section.left, document.left);
  set(kPageMarginTop, section.top, document.top);
  set(kPageMarginRight, section.right, document.right);
  set(kPageMarginBottom, section.bottom, document.bottom);
}

}  // namespace snipdeck

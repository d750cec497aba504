#include "richtext/rtf_page.h"

#include <QTextDocument>
#include <QTextFrame>

#include "richtext/format_properties.h"

namespace snipdeck {

void RtfPage::Store(QTextDocument& target) const {
  QTextFrameFormat format = target.rootFrame()->frameFormat();
  bool any = false;
  const auto set = [&](FormatProperty property, int ofSection, int ofDocument) {
    const int value = ofSection > 0 ? ofSection : ofDocument;
    if (value <= 0) return;
    format.setProperty(property, value);
    any = true;
  };
  set(kPageWidth, section.width, document.width);
  set(kPageHeight, section.height, document.height);
  set(kPageMarginLeft, section.left, document.left);
  set(kPageMarginTop, section.top, document.top);
  set(kPageMarginRight, section.right, document.right);
  set(kPageMarginBottom, section.bottom, document.bottom);
  if (any) target.rootFrame()->setFrameFormat(format);
}

}  // namespace snipdeck

#include "richtext/document_page.h"

#include <algorithm>

#include <QTextDocument>
#include <QTextFrame>

#include "platform/units.h"
#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr int kLeastText = kTwipsPerInch / 2;   // twips of text between two margins
constexpr int kLargestSheet = 66 * kTwipsPerInch;  // larger than A0 on its side

struct Entry {
  FormatProperty property;
  int PageGeometry::*value;
};
constexpr Entry kEntries[] = {{kPageWidth, &PageGeometry::width},       {kPageHeight, &PageGeometry::height},
                              {kPageMarginLeft, &PageGeometry::left},   {kPageMarginTop, &PageGeometry::top},
                              {kPageMarginRight, &PageGeometry::right}, {kPageMarginBottom, &PageGeometry::bottom}};

void MakeRoom(int& size, int& first, int& second) {
  size = std::clamp(size, 2 * kLeastText, kLargestSheet);
  first = std::clamp(first, 0, size - kLeastText);
  second = std::clamp(second, 0, size - kLeastText - first);
}

PageGeometry WithRoom(PageGeometry page) {
  MakeRoom(page.width, page.left, page.right);
  MakeRoom(page.height, page.top, page.bottom);
  return page;
}

void SetOrClear(QTextFrameFormat& page, FormatProperty property, const QString& text) {
  if (text.isEmpty()) return page.clearProperty(property);
  page.setProperty(property, text);
}

}  // namespace

PageGeometry PageOf(const QTextDocument& document) {
  const QTextFrameFormat format = document.rootFrame()->frameFormat();
  PageGeometry page;
  for (const Entry& entry : kEntries)
    if (format.hasProperty(entry.property)) page.*entry.value = format.intProperty(entry.property);
  return WithRoom(page);
}

void SetPageOf(QTextDocument& document, const PageGeometry& page) {
  const PageGeometry wanted = WithRoom(page);
  QTextFrameFormat format = document.rootFrame()->frameFormat();
  for (const Entry& entry : kEntries) format.setProperty(entry.property, wanted.*entry.value);
  if (format != document.rootFrame()->frameFormat()) document.rootFrame()->setFrameFormat(format);
}

PageTexts PageTextsOf(const QTextFrameFormat& page) {
  return {page.stringProperty(kHeaderText), page.stringProperty(kFooterText)};
}

void SetPageTexts(QTextFrameFormat& page, const PageTexts& texts) {
  SetOrClear(page, kHeaderText, texts.header);
  SetOrClear(page, kFooterText, texts.footer);
}

}  // namespace snipdeck

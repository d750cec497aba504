#include "richtext/format_spread.h"

#include <QTextOption>

#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr std::size_t kFewFormats = 200;

// The hashes have no seed, so that equal formats of two texts are equal in every run of the program.
void SetSpread(QTextFormat& format, std::size_t hash) {
  format.setProperty(kSpread, static_cast<int>((hash ^ (hash >> 32)) & 0x7FFFFFFF));
}

void SpreadCharacters(QTextCharFormat& format) {
  const QStringList families = format.fontFamilies().toStringList();
  if (families.isEmpty()) return;
  SetSpread(format, qHashRange(families.cbegin(), families.cend()));
}

void SpreadParagraph(QTextBlockFormat& format) {
  const QList<QTextOption::Tab> tabs = format.tabPositions();
  if (tabs.isEmpty()) return;
  std::size_t hash = 0;
  for (const QTextOption::Tab& tab : tabs) hash = qHashMulti(hash, tab.position, static_cast<int>(tab.type));
  SetSpread(format, hash);
}

}  // namespace

void SpreadFormats(FlowFormats& formats) {
  for (std::size_t i = kFewFormats; i < formats.characters.size(); ++i) SpreadCharacters(formats.characters[i]);
  for (std::size_t i = kFewFormats; i < formats.paragraphs.size(); ++i) SpreadParagraph(formats.paragraphs[i].format);
}

void SpreadTableFormat(QTextTableFormat& format) {
  std::size_t hash = 0;
  const QList<QTextLength> widths = format.columnWidthConstraints();
  for (const QTextLength& width : widths) hash = qHashMulti(hash, static_cast<int>(width.type()), width.rawValue());
  SetSpread(format, hash);
}

}  // namespace snipdeck

#include "richtext/docx/docx_formats.h"

#include <algorithm>
#include <cmath>

#include "platform/units.h"
#include "richtext/format_values.h"

namespace snipdeck {
namespace {

constexpr int kListStep = 600;  // twips: one step of a list in Qt's documents
constexpr std::ptrdiff_t kLookBack = 48;

int Twips(double pixels) {
  return static_cast<int>(std::lround(pixels * kTwipsPerPixel));
}

/// The place of a format among those seen lately, else a new one.
template <typename Formats, typename Same>
int IndexOf(const Formats& formats, Same same) {
  const auto end = formats.rbegin() + std::min<std::ptrdiff_t>(std::ssize(formats), kLookBack);
  const auto found = std::find_if(formats.rbegin(), end, same);
  return found == end ? -1 : static_cast<int>(formats.rend() - found) - 1;
}

/// In a paragraph from right to left, the left of the file is where its lines begin.
void TurnAlignment(QTextBlockFormat& format) {
  if (format.layoutDirection() != Qt::RightToLeft || !(format.alignment() & Qt::AlignAbsolute)) return;
  const bool isRight = format.alignment() & Qt::AlignRight;
  format.setAlignment((isRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignAbsolute);
}

}  // namespace

QTextCharFormat DocxFormats::RunBase(const QTextBlockFormat& paragraph, const QTextCharFormat& surroundings) const {
  QTextCharFormat base = m_styles.DefaultRun();
  base.merge(surroundings);
  base.merge(m_styles.Paragraph(paragraph.stringProperty(kDocxStyle)).run);
  return base;
}

QTextCharFormat DocxFormats::Run(const QTextCharFormat& base, const QTextCharFormat& direct) const {
  QTextCharFormat run = base;
  const DocxStyles::Style* const style =
      direct.hasProperty(kDocxStyle) ? m_styles.Run(direct.stringProperty(kDocxStyle)) : nullptr;
  if (style) {
    run.merge(style->run);
    if (!style->name.isEmpty()) run.setProperty(kCharStyleName, style->name);
  }
  run.merge(direct);
  return Finished(run);
}

int DocxFormats::Character(const QTextCharFormat& finished) {
  auto& known = m_formats.characters;
  const int index = IndexOf(known, [&](const QTextCharFormat& format) { return format == finished; });
  if (index >= 0) return index;
  known.push_back(finished);
  return static_cast<int>(known.size()) - 1;
}

DocxFormats::Place DocxFormats::PlaceOf(const QTextBlockFormat& direct, const DocxStyles::Style& style) const {
  Place place;
  place.fromStyle = !direct.hasProperty(kDocxList);
  place.list = place.fromStyle ? std::max(DocxStyles::ListOf(style), 0) : direct.intProperty(kDocxList);
  place.level = style.paragraph.intProperty(kDocxLevel);
  if (direct.hasProperty(kDocxLevel)) {
    place.level = direct.intProperty(kDocxLevel);
  } else if (place.fromStyle) {
    place.level = m_lists.LevelOfStyle(place.list, direct.stringProperty(kDocxStyle), place.level);
  }
  return place;
}

// The indents of a list count before those of the style, unless it is the style that names the list.
QTextBlockFormat DocxFormats::Effective(const QTextBlockFormat& direct, const QTextBlockFormat& surroundings,
                                        const DocxStyles::Style& style, const Place& place) const {
  QTextBlockFormat format = m_styles.DefaultParagraph();
  format.merge(surroundings);
  if (!place.fromStyle) format.merge(style.paragraph);
  if (place.list > 0) format.merge(m_lists.Indents(place.list, place.level));
  if (place.fromStyle) format.merge(style.paragraph);
  format.merge(direct);
  TurnAlignment(format);
  for (const int property : {kDocxStyle, kDocxList, kDocxLevel}) format.clearProperty(property);
  return format;
}

int DocxFormats::Paragraph(const QTextBlockFormat& direct, const QTextBlockFormat& surroundings, bool breaksPage) {
  const DocxStyles::Style& style = m_styles.Paragraph(direct.stringProperty(kDocxStyle));
  const Place place = PlaceOf(direct, style);
  FlowFormats::Paragraph paragraph{Effective(direct, surroundings, style, place), -1};
  QTextBlockFormat& format = paragraph.format;
  if (!style.name.isEmpty() && !m_styles.IsDefault(style)) format.setProperty(kParaStyleName, style.name);
  if (breaksPage) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  ParagraphState state;
  state.list = place.list;
  state.listLevel = place.level;
  state.leftIndent = Twips(format.leftMargin());
  state.firstLine = Twips(format.textIndent());
  const RtfListItem item = m_numbering.Item(state, QString());
  if (item.list >= 0) {
    paragraph.list = item.list;
    format.setTextIndent(0);
    format.setLeftMargin((item.textIndent - kListStep * (item.level + 1)) / kTwipsPerPixel);
    if (!item.label.isEmpty()) format.setProperty(kListLabel, item.label);
  }
  const int steps = item.list < 0 ? 0 : item.level + 1;
  const double origin = TabOrigin(format, steps, kListStep / kTwipsPerPixel);
  if (origin != 0) format.setTabPositions(ShiftedTabs(format.tabPositions(), -origin));
  return Keep(std::move(paragraph));
}

int DocxFormats::Keep(FlowFormats::Paragraph&& paragraph) {
  auto& known = m_formats.paragraphs;
  const int index = IndexOf(known, [&](const FlowFormats::Paragraph& candidate) {
    return candidate.list == paragraph.list && candidate.format == paragraph.format;
  });
  if (index >= 0) return index;
  known.push_back(std::move(paragraph));
  return static_cast<int>(known.size()) - 1;
}

}  // namespace snipdeck

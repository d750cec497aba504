#include "richtext/rtf/rtf_state.h"

#include <QHash>

namespace snipdeck {
namespace {

template <typename... Values>
std::size_t HashAll(const Values&... values) {
  std::size_t hash = 0x9E3779B97F4A7C15ull;
  ((hash = (hash ^ static_cast<std::size_t>(values)) * 0x100000001B3ull), ...);
  return hash ^ (hash >> 29);
}

}  // namespace

// Only what tells states apart in practice; equality decides.
std::size_t HashOf(const CharacterState& s) {
  const auto flags = s.bold | s.italic << 1 | s.strike << 2 | s.doubleStrike << 3 | s.hidden << 4 | s.rightToLeft << 5;
  return HashAll(s.font, s.associatedFont, s.style, s.link, s.size, s.associatedSize, s.foreground, s.background,
                 s.highlight, s.spacing, s.scalePercent, s.raise, static_cast<int>(s.underline),
                 static_cast<int>(s.script), static_cast<int>(s.letterCase), flags);
}

std::size_t HashOf(const ParagraphState& s) {
  std::size_t tabs = 0;
  for (const RtfTab& tab : s.tabs) tabs = HashAll(tabs, tab.position, static_cast<int>(tab.kind), tab.leader);
  return HashAll(s.style, s.leftIndent, s.rightIndent, s.firstLine, s.spaceBefore, s.spaceAfter, s.lineSpacing, s.list,
                 s.listLevel, s.shading, static_cast<int>(s.alignment), tabs, qHash(s.borders), s.pageBreakBefore,
                 s.rightToLeft);
}

}  // namespace snipdeck

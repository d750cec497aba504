#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>

#include <QByteArray>
#include <QList>

namespace snipdeck {

class RtfBody;
class RtfDestination;

/// Sizes in half points and distances in twips, as the stream gives them; colours, fonts, styles and links are indexes.
inline constexpr int kMaxTwips = 31680;

enum class RtfUnderline : std::int8_t {
  None,
  Single,
  Words,
  Double,
  Dotted,
  Dash,
  DashDot,
  DashDotDot,
  Wave,
  Thick,
  ThickDotted,
  ThickDash,
  ThickDashDot,
  ThickDashDotDot,
  LongDash,
  ThickLongDash,
  HeavyWave,
  DoubleWave
};
enum class RtfScript : std::int8_t { Normal, Super, Sub };
enum class RtfCase : std::int8_t { Normal, Capitals, SmallCapitals };
enum class RtfAlignment : std::int8_t { Natural, Left, Right, Centre, Justified };
enum class RtfTabKind : std::int8_t { Left, Right, Centre, Decimal };

/// What the border words that follow describe.
enum class RtfBorderTarget : std::int8_t { None, Paragraph, Row };

struct CharacterState {
  std::int32_t font = -1;            ///< -1: the default font.
  std::int32_t associatedFont = -1;  ///< For right-to-left runs.
  std::int32_t style = 0;
  std::int32_t link = 0;  ///< 1 + index in the reader's links; 0 none.
  std::int16_t size = 24;
  std::int16_t associatedSize = 24;
  std::int16_t foreground = 0;
  std::int16_t background = 0;
  std::int16_t highlight = 0;
  std::int16_t underlineColour = 0;
  std::int16_t scalePercent = 100;
  std::int16_t spacing = 0;  ///< Twips between characters.
  std::int16_t raise = 0;    ///< Half points up.
  RtfUnderline underline = RtfUnderline::None;
  RtfScript script = RtfScript::Normal;
  RtfCase letterCase = RtfCase::Normal;
  std::int8_t emboss = 0;  ///< 1 embossed, -1 engraved.
  bool bold = false;
  bool italic = false;
  bool associatedBold = false;
  bool associatedItalic = false;
  bool strike = false;
  bool doubleStrike = false;
  bool hidden = false;
  bool outline = false;
  bool shadow = false;
  bool rightToLeft = false;  ///< The associated attributes count.

  auto Fields() {
    return std::tie(font, associatedFont, style, link, size, associatedSize, foreground, background, highlight,
                    underlineColour, scalePercent, spacing, raise, underline, script, letterCase, emboss, bold, italic,
                    associatedBold, associatedItalic, strike, doubleStrike, hidden, outline, shadow, rightToLeft);
  }
  bool operator==(const CharacterState&) const = default;
};

struct RtfTab {
  std::int32_t position = 0;
  RtfTabKind kind = RtfTabKind::Left;
  std::int16_t leader = 0;  ///< The character that fills the way to it; 0 none.
  bool operator==(const RtfTab&) const = default;
};

/// How a paragraph of the old numbering is labelled; none when kind is 0.
struct RtfOldNumbering {
  enum Kind : std::int8_t { None, Bullet, Number };
  std::int8_t kind = None;
  std::int8_t level = 0;
  std::int16_t format = 0;  ///< Number format as in \levelnfc.
  std::int32_t start = 1;
  QByteArray before;  ///< UTF-8
  QByteArray after;
  bool operator==(const RtfOldNumbering&) const = default;
};

struct ParagraphState {
  std::int32_t style = 0;
  std::int32_t leftIndent = 0;
  std::int32_t rightIndent = 0;
  std::int32_t firstLine = 0;
  std::int32_t spaceBefore = 0;
  std::int32_t spaceAfter = 0;
  std::int32_t lineSpacing = 0;  ///< 0 automatic, negative exactly, positive at least or a multiple.
  std::int32_t list = 0;         ///< Number of the list override; 0 none.
  std::int32_t listLevel = 0;
  std::int16_t shading = 0;  ///< Background colour.
  std::int16_t shadingForeground = 0;
  std::int16_t shadingPercent = 0;  ///< In hundredths of a percent.
  RtfAlignment alignment = RtfAlignment::Natural;
  RtfTabKind pendingTab = RtfTabKind::Left;  ///< Kind of the tab stop that the next \tx sets.
  std::int16_t pendingLeader = 0;            ///< The same of its leader.
  std::int8_t outlineLevel = 0;              ///< 1 + the level of a heading, 0 body.
  bool lineSpacingMultiple = false;
  bool keepTogether = false;
  bool keepWithNext = false;
  bool pageBreakBefore = false;
  bool noSpaceWithinStyle = false;  ///< No space between this and paragraphs of the same style.
  bool rightToLeft = false;
  bool ruler = false;
  QList<RtfTab> tabs;
  QByteArray borders;  ///< The control words that describe them.
  RtfOldNumbering numbering;

  auto Fields() {
    return std::tie(style, leftIndent, rightIndent, firstLine, spaceBefore, spaceAfter, lineSpacing, list, listLevel,
                    shading, shadingForeground, shadingPercent, alignment, outlineLevel, lineSpacingMultiple,
                    keepTogether, keepWithNext, pageBreakBefore, noSpaceWithinStyle, rightToLeft, ruler, tabs, borders,
                    numbering);
  }
  bool operator==(const ParagraphState&) const = default;
};

/// All that a group saves and its end restores.
struct GroupState {
  CharacterState character;
  ParagraphState paragraph;
  RtfDestination* destination = nullptr;
  RtfBody* body = nullptr;          ///< The text that the group belongs to, whatever its destination.
  RtfDestination* outer = nullptr;  ///< Where the part to be shown of a group with several versions goes.
  std::int32_t tableLevel = 0;      ///< \itap; paragraphs of the body have 0.
  std::int32_t unicodeSkip = 1;
  RtfBorderTarget border = RtfBorderTarget::None;
  bool insideNote = false;
  bool rtfOnly = false;  ///< Not part of the HTML that the stream wraps.
  bool inTable = false;
  bool nestedRow = false;  ///< Row words describe the nested table.
};

/// Takes over from `style` every attribute that `direct` leaves at its default.
template <typename State>
void MergeStyle(State& direct, State style) {
  State defaults;
  const auto merge = [](auto& mine, const auto& theirs, const auto& unset) {
    if (mine == unset) mine = theirs;
  };
  [&]<std::size_t... I>(std::index_sequence<I...>) {
    auto mine = direct.Fields();
    auto theirs = style.Fields();
    auto unset = defaults.Fields();
    (merge(std::get<I>(mine), std::get<I>(theirs), std::get<I>(unset)), ...);
  }
  (std::make_index_sequence<std::tuple_size_v<decltype(direct.Fields())>>{});
}

std::size_t HashOf(const CharacterState& state);
std::size_t HashOf(const ParagraphState& state);

}  // namespace snipdeck

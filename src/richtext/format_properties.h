#pragma once

#include <QTextFormat>

namespace snipdeck {

/// What rich text holds beyond Qt's own formats. Stored as user properties of Qt's formats, so that it travels with every
/// copy of the text; readers set them, writers read them, and the view ignores what it cannot show.
enum FormatProperty : int {
  // Characters
  kCharStyleName = QTextFormat::UserProperty + 1,  ///< QString: name of the character style.
  kUnderlineKind,     ///< int, UnderlineKind; set only where Qt's underline style cannot say it.
  kDoubleStrike,      ///< bool: struck out twice (fontStrikeOut is set as well).
  kHiddenText,        ///< bool: hidden text.
  kHighlight,         ///< bool: the background came from a highlighter, not from shading.
  kOutline,           ///< bool
  kShadow,            ///< bool
  kEmboss,            ///< int: 1 embossed, -1 engraved.
  kBaselineShift,     ///< int: half points up (positive) or down, where it is neither super- nor subscript.
  kCharScalePercent,  ///< int: horizontal scale in percent, 1 to 600 (also set as fontStretch).

  // Paragraphs
  kParaStyleName = QTextFormat::UserProperty + 100,  ///< QString: name of the paragraph style.
  kKeepTogether,     ///< bool: no page break inside the paragraph.
  kKeepWithNext,     ///< bool: no page break after the paragraph.
  kListLabel,        ///< QString: label of a list paragraph as its writer showed it, where its list cannot count it.
  kParagraphBorder,  ///< QString: borders, as the RTF control words that describe them, with colours as \brdrcf#rrggbb.
  kTableGoesOn,      ///< bool: the place between two of Qt's tables that are one; no paragraph while it has no text.

  // Table cells
  kRowHeight = QTextFormat::UserProperty + 150,  ///< int: least height of the cell's row in twips; negative: just that.

  // Lists
  kListId = QTextFormat::UserProperty + 200,  ///< int: paragraphs with the same id continue one numbering.
  kListLevel,  ///< int, 0 to 8.
  kListStart,  ///< int: number of the first item.

  // Any of them
  kSpread = QTextFormat::UserProperty + 250,  ///< int: says nothing; see format_spread.h.

  // The document (format of its root frame), all in twips; absent or 0 means that the text does not say
  kPageWidth = QTextFormat::UserProperty + 300,  ///< int
  kPageHeight,        ///< int
  kPageMarginLeft,    ///< int
  kPageMarginTop,     ///< int
  kPageMarginRight,   ///< int
  kPageMarginBottom,  ///< int
  kHeaderText,        ///< QString: text of the page header, paragraphs separated by "\n"; not part of the running text.
  kFooterText,        ///< QString: text of the page footer.
};

enum class UnderlineKind : int { None, Single, Double, Thick, WordsOnly, ThickDotted, ThickDash, ThickDashDot,
                                 ThickDashDotDot, LongDash, ThickLongDash, HeavyWave, DoubleWave };

}  // namespace snipdeck

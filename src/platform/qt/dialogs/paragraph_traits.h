#pragma once

#include <optional>

#include <QTextBlockFormat>
#include <QTextOption>

class QTextBlock;

namespace snipdeck {

class RichTextControl;

enum class ParagraphAlignment { Left, Centre, Right, Justified };
enum class LineSpacingRule { Single, OneAndAHalf, Double, Multiple, AtLeast, Exactly };

struct LineSpacing {
  LineSpacingRule rule = LineSpacingRule::Single;
  /// Lines for a multiple, pixels for a height; 0 for the others.
  double amount = 0;

  bool operator==(const LineSpacing&) const = default;
};

/// What the paragraph dialog shows of paragraphs, lengths in pixels of the unzoomed text. A trait without a value
/// differs within the selection.
struct ParagraphTraits {
  std::optional<ParagraphAlignment> alignment;
  std::optional<double> left;
  std::optional<double> right;
  /// Counted from `left`; negative hangs out to the left.
  std::optional<double> firstLine;
  std::optional<double> before;
  std::optional<double> after;
  std::optional<LineSpacing> lines;
  std::optional<bool> keepTogether;
  std::optional<bool> keepWithNext;
  std::optional<bool> pageBreakBefore;
  /// Counted as the ruler counts them, from the left edge of the text column.
  std::optional<QList<QTextOption::Tab>> tabs;

  bool operator==(const ParagraphTraits&) const = default;

  static ParagraphTraits Of(const QTextBlock& block);
  /// What all paragraphs that the selection touches have in common.
  static ParagraphTraits OfSelection(const RichTextControl& control);
};

/// Gives every paragraph of the selection what `after` has and `before` has not. One undo step; false where nothing
/// changed.
bool ApplyParagraphTraits(RichTextControl& control, const ParagraphTraits& before, const ParagraphTraits& after);

}  // namespace snipdeck

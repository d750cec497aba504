#pragma once

#include <QTextBlock>
#include <QTextOption>

class QTextCursor;

namespace snipdeck {

/// Indents and tab stops of a paragraph as a ruler shows them: in pixels of the unzoomed text, counted from the left
/// edge of its text column; `right` is counted from the right edge.
struct ParagraphIndents {
  double firstLine = 0;
  double left = 0;
  double right = 0;
  /// The part of `left` that comes from a list and cannot be dragged away.
  double listShare = 0;
  QList<QTextOption::Tab> tabs;

  bool operator==(const ParagraphIndents&) const = default;

  /// Where the text measures tab stops from.
  double TabOrigin() const { return firstLine; }
};

/// `zoom` is the size of the text, 1 as given.
ParagraphIndents IndentsOf(const QTextBlock& block, double zoom);

/// Gives the paragraphs of `cursor` what differs between the two, as one undo step; everything else stays as it is in
/// each.
void ApplyIndents(QTextCursor cursor, const ParagraphIndents& before, const ParagraphIndents& after);

}  // namespace snipdeck

#pragma once

#include <QTextBlock>

class QPaintDevice;

namespace snipdeck {

/// The column in which paragraphs are placed, in pixels of the document.
struct TextColumn {
  double left = 0;
  double width = 0;
  /// False where lines are as long as their paragraphs; `width` then only says where aligned lines end.
  bool wraps = true;
  /// How many pixels there are to a pixel of Qt's default resolution.
  double scale = 1;
};

/// Pixels between the paragraph before `block` and the first line of `block`.
double SpaceAbove(const QTextBlock& block, const TextColumn& column);

/// Breaks a paragraph outside tables and frames into lines, as Qt's layout does. The lines stand in block.layout(),
/// relative to its position, which stays as it is. Returns their height in pixels. Takes about a microsecond a character.
double PlaceLines(const QTextBlock& block, const TextColumn& column);

/// Indent of the paragraph and of its list, in pixels.
double IndentOf(const QTextBlock& block, const TextColumn& column);

}  // namespace snipdeck

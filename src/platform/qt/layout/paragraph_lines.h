#pragma once

#include <QTextBlock>
#include <QTextLayout>

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

/// The room that a line takes: from where it begins to where the next one does, and how much of it has to be there, both
/// in pixels; its characters are drawn so much higher.
struct LineRoom {
  double advance = 0;
  double needed = 0;
  double raised = 0;
  double bottom = 0;  ///< how far its characters reach down from where it begins
};
LineRoom RoomOf(const QTextLine& line, const QTextBlockFormat& format, double scale);

/// Breaks a paragraph outside tables and frames into lines, as Qt's layout does, all of them at the same height. Takes about
/// a microsecond a character.
void BreakLines(const QTextBlock& block, const TextColumn& column);

/// Breaks a paragraph outside tables and frames into lines, as Qt's layout does. The lines stand in block.layout(),
/// relative to its position, which stays as it is. Returns their height in pixels.
double PlaceLines(const QTextBlock& block, const TextColumn& column);

/// Indent of the paragraph and of its list, in pixels.
double IndentOf(const QTextBlock& block, const TextColumn& column);

}  // namespace snipdeck

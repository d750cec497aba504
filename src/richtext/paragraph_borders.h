#pragma once

#include <array>

#include <QColor>
#include <QTextFormat>

namespace snipdeck {

/// One side of a paragraph's border; width 0 means none.
struct BorderLine {
  QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_Solid;
  int width = 0;  ///< twips
  int space = 0;  ///< twips between line and text
  QColor colour;  ///< invalid: that of the text
  bool operator==(const BorderLine&) const = default;
};

/// Between: the line that parts paragraphs of one border.
enum BorderSide { kBorderTop, kBorderLeft, kBorderBottom, kBorderRight, kBorderBetween };
inline constexpr std::size_t kBorderSides = 5;
using ParagraphBorders = std::array<BorderLine, kBorderSides>;

/// What kParagraphBorder says.
ParagraphBorders BordersOf(const QTextBlockFormat& format);

/// The control word of a line's style, as "brdrs".
const char* BorderWord(QTextFrameFormat::BorderStyle style);

/// The control words with every colour (\brdrcf#rrggbb) replaced by what `number` makes of it.
template <typename Number>
QByteArray WithColourNumbers(const QByteArray& words, Number number) {
  static constexpr qsizetype kNameSize = 7;
  QByteArray numbered;
  qsizetype from = 0;
  for (qsizetype at = words.indexOf('#'); at >= 0; at = words.indexOf('#', from)) {
    numbered += words.mid(from, at - from);
    numbered += QByteArray::number(number(QColor(QLatin1String(words.mid(at, kNameSize)))));
    from = at + kNameSize;
  }
  return numbered + words.mid(from);
}

}  // namespace snipdeck

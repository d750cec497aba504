#pragma once

#include <QHash>
#include <QTextBlock>

#include "platform/qt/layout/paragraph_lines.h"

namespace snipdeck {

/// Guesses how high paragraphs will be whose lines are not placed yet. Right for most paragraphs of one line, near for
/// others; takes a fraction of a microsecond each.
class HeightGuess {
 public:
  HeightGuess(const TextColumn& column, const QPaintDevice* device) : m_column(column), m_device(device) {}

  /// With the space above, in whole pixels; 0 for a hidden paragraph.
  int Of(const QTextBlock& block);

 private:
  struct Font {
    double characterWidth;
    double lineHeight;
  };
  const Font& FontOf(const QTextBlock& block);
  const QTextBlockFormat& FormatOf(const QTextBlock& block);

  TextColumn m_column;
  const QPaintDevice* m_device;
  QHash<int, Font> m_fonts;
  QHash<int, QTextBlockFormat> m_formats;
};

}  // namespace snipdeck

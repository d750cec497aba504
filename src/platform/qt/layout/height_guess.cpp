#include "platform/qt/layout/height_guess.h"

#include <cmath>

#include <QFontMetricsF>
#include <QTextDocument>

namespace snipdeck {

int HeightGuess::Of(const QTextBlock& block) {
  if (!block.isVisible()) return 0;
  const Font& font = FontOf(block);
  const QTextBlockFormat& format = FormatOf(block);
  const QTextBlock previous = block.previous();
  const double above = previous.isValid() ? std::max(format.topMargin(), FormatOf(previous).bottomMargin()) : 0;
  const double width = std::max(m_column.width - format.leftMargin() - format.rightMargin(), font.characterWidth);
  const double lines = m_column.wraps ? std::ceil((block.length() - 1) * font.characterWidth / width) : 1;
  return static_cast<int>(
      std::ceil(above * m_column.scale + std::max(lines, 1.0) * format.lineHeight(font.lineHeight, m_column.scale)));
}

const HeightGuess::Font& HeightGuess::FontOf(const QTextBlock& block) {
  const auto known = m_fonts.constFind(block.charFormatIndex());
  if (known != m_fonts.cend()) return *known;
  const QFont font = block.charFormat().font().resolve(block.document()->defaultFont());
  const QFontMetricsF metrics = m_device ? QFontMetricsF(font, m_device) : QFontMetricsF(font);
  static const QString kSample = QStringLiteral("an ordinary sentence, 1 of a few");
  return *m_fonts.insert(block.charFormatIndex(),
                         {metrics.horizontalAdvance(kSample) / static_cast<double>(kSample.size()),
                          std::ceil(metrics.ascent() + metrics.descent() + metrics.leading())});
}

const QTextBlockFormat& HeightGuess::FormatOf(const QTextBlock& block) {
  const auto known = m_formats.constFind(block.blockFormatIndex());
  return known != m_formats.cend() ? *known : *m_formats.insert(block.blockFormatIndex(), block.blockFormat());
}

}  // namespace snipdeck

#include "platform/qt/glyph_button.h"

#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace snipdeck {

GlyphButton::GlyphButton(Glyph glyph, const QString& toolTip, QWidget* parent) : QToolButton(parent), m_glyph(glyph) {
  setCheckable(true);
  setAutoRaise(true);
  setFocusPolicy(Qt::TabFocus);
  setToolTip(toolTip);
  setAccessibleName(toolTip);
}

void GlyphButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionToolButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = QIcon();
  painter.drawComplexControl(QStyle::CC_ToolButton, option);
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
  if (m_glyph <= Glyph::Underline)
    PaintLetter(painter);
  else
    PaintLines(painter);
}

void GlyphButton::PaintLetter(QPainter& painter) const {
  static const char* const kLetters[] = {"B", "I", "U"};
  QFont letterFont(QStringLiteral("serif"));
  letterFont.setPixelSize(std::max(8, height() * 3 / 5));
  letterFont.setBold(m_glyph == Glyph::Bold);
  letterFont.setItalic(m_glyph == Glyph::Italic);
  letterFont.setUnderline(m_glyph == Glyph::Underline);
  painter.setFont(letterFont);
  painter.drawText(rect(), Qt::AlignCenter, QLatin1String(kLetters[static_cast<int>(m_glyph)]));
}

// Five lines of text; where a line is short, the alignment decides at which side the room is left.
void GlyphButton::PaintLines(QPainter& painter) const {
  constexpr int kLineCount = 5;
  const int full = std::max(8, height() / 2 + 1);
  const int step = std::max(2, height() / 8);
  const int left = (width() - full) / 2;
  const int top = (height() - step * (kLineCount - 1)) / 2;
  for (int i = 0; i < kLineCount; ++i) {
    const bool isShort = i % 2 == 1 && m_glyph != Glyph::AlignJustify;
    const int length = isShort ? full * 3 / 5 : full;
    int x = left;
    if (m_glyph == Glyph::AlignRight) x += full - length;
    if (m_glyph == Glyph::AlignCentre) x += (full - length) / 2;
    painter.fillRect(x, top + i * step, length, 1, painter.pen().color());
  }
}

}  // namespace snipdeck

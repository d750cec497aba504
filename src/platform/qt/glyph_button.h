#pragma once

#include <QToolButton>

namespace snipdeck {

/// What a button of the button bar shows.
enum class Glyph { Bold, Italic, Underline, AlignLeft, AlignCentre, AlignRight, AlignJustify };

/// A flat button that stays pressed. Its sign is drawn in the theme's own text colour, crisp at any scale.
class GlyphButton : public QToolButton {
  Q_OBJECT

 public:
  GlyphButton(Glyph glyph, const QString& toolTip, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintLetter(QPainter& painter) const;
  void PaintLines(QPainter& painter) const;

  Glyph m_glyph;
};

}  // namespace snipdeck

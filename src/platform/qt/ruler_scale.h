#pragma once

#include <QLocale>

class QColor;
class QPainter;
class QRectF;

namespace snipdeck {

/// A unit of length on a ruler.
struct RulerUnit {
  double pixels;       ///< Length of the unit, unzoomed.
  int divisions;       ///< Small marks a unit, itself included.
  int middleDivision;  ///< Every so many of them is a longer one.
  double snap;         ///< Pixels between the places where a dragged handle comes to rest, unzoomed.
};

/// Inches where people measure in inches, else centimetres.
RulerUnit UnitOf(QLocale::MeasurementSystem system);

/// Paints marks and numbers into `band`; `origin` is the x of zero and `zoom` the size of the text, 1 as given.
void PaintRulerScale(QPainter& painter, const QRectF& band, double origin, double zoom, const RulerUnit& unit,
                     const QColor& colour);

}  // namespace snipdeck

#include "platform/qt/ruler_scale.h"

#include <QPainter>

namespace snipdeck {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPixelsPerCentimetre = kPixelsPerInch / 2.54;
constexpr RulerUnit kInch = {kPixelsPerInch, 8, 4, kPixelsPerInch / 16};
constexpr RulerUnit kCentimetre = {kPixelsPerCentimetre, 4, 2, kPixelsPerCentimetre / 10};

constexpr double kNumberRoom = 26;  // pixels between two numbers, at least
constexpr double kMarkRoom = 7;     // pixels between two marks, at least
constexpr double kNumberHalfWidth = 14;

// Numbers stand at every unit, every second, fifth, tenth ... as there is room.
int NumberStep(double unitPixels) {
  static constexpr int kFactors[] = {1, 2, 5};
  for (int power = 1; power < 1000; power *= 10)
    for (const int factor : kFactors)
      if (factor * power * unitPixels >= kNumberRoom) return factor * power;
  return 1000;
}

void PaintMark(QPainter& painter, const QRectF& band, double x, double share) {
  const double half = band.height() * share / 2;
  const double middle = band.center().y();
  painter.drawLine(QPointF(x, middle - half), QPointF(x, middle + half));
}

}  // namespace

RulerUnit UnitOf(QLocale::MeasurementSystem system) {
  return system == QLocale::MetricSystem ? kCentimetre : kInch;
}

void PaintRulerScale(QPainter& painter, const QRectF& band, double origin, double zoom, const RulerUnit& unit,
                     const QColor& colour) {
  const double unitPixels = unit.pixels * zoom;
  const int step = NumberStep(unitPixels);
  const int divisions = unitPixels / unit.divisions >= kMarkRoom ? unit.divisions : 1;
  const int first = qFloor((band.left() - origin) / unitPixels * divisions);
  const int last = qCeil((band.right() - origin) / unitPixels * divisions);
  painter.save();
  painter.setClipRect(band);
  painter.setPen(QPen(colour, 1));
  for (int i = first; i <= last; ++i) {
    const double x = origin + i * unitPixels / divisions;
    if (i % divisions == 0 && (i / divisions) % step == 0) {
      if (i == 0) continue;
      const QRectF room(x - kNumberHalfWidth, band.top(), 2 * kNumberHalfWidth, band.height());
      painter.drawText(room, Qt::AlignCenter, QString::number(std::abs(i / divisions)));
    } else if (unitPixels >= kMarkRoom) {
      const bool isLong = (i * unit.divisions / divisions) % unit.middleDivision == 0;
      PaintMark(painter, band, qRound(x) + 0.5, isLong ? 0.4 : 0.2);
    }
  }
  painter.restore();
}

}  // namespace snipdeck

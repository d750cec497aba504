#pragma once

#include <cmath>

#include <QColor>

namespace snipdeck {

/// How light a colour looks, 0 black to 1 white.
inline double Lightness(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// Black or white, whichever stands out more from `ground`.
inline QColor ReadableOn(const QColor& ground) {
  // Where the contrast to black and to white is the same, both counted with the light that a screen reflects.
  constexpr double kMiddle = 0.1791;
  return Lightness(ground) > kMiddle ? QColor(Qt::black) : QColor(Qt::white);
}

}  // namespace snipdeck

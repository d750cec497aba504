#pragma once

#include <QColor>

#include <cmath>
#include <cstdint>

namespace snipdeck {

/// 1/1440 inch, the unit of window geometry and of RTF.
inline constexpr int kTwipsPerInch = 1440;
/// At 96 dots per inch, which Qt's device-independent pixels stand for.
inline constexpr double kTwipsPerPixel = 15.0;

/// Controls snap to whole pixels.
inline int PixelsFromTwips(double twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }
inline double TwipsFromPixels(int pixels) { return pixels * kTwipsPerPixel; }

/// 32-bit colour: red in the low byte, then green, then blue. -1 means that no colour was chosen.
using OleColour = std::int32_t;
inline constexpr OleColour kNoColour = -1;

inline constexpr OleColour OleFromRgb(int red, int green, int blue) { return red | (green << 8) | (blue << 16); }
inline QColor ColourFromOle(OleColour ole) { return QColor(ole & 0xFF, (ole >> 8) & 0xFF, (ole >> 16) & 0xFF); }

}  // namespace snipdeck

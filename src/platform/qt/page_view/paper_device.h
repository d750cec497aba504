#pragma once

#include <QPaintDevice>

namespace snipdeck {

/// Dots of a line of paper to a pixel of 1/96 inch. Qt rounds the height of every line up to whole dots.
inline constexpr double kPaperDotsPerPixel = 4;
inline constexpr int kPaperDotsPerInch = 384;

/// What texts are broken into lines and pages for: a paper of one fineness, whatever screen or printer they are drawn on,
/// so that lines and pages end at the same words everywhere.
class PaperDevice : public QPaintDevice {
 public:
  QPaintEngine* paintEngine() const override { return nullptr; }

 protected:
  int metric(PaintDeviceMetric metric) const override;
};

}  // namespace snipdeck

#pragma once

#include <QPaintDevice>

namespace snipdeck {

/// What texts are broken into lines and pages for: a paper of one fineness, whatever screen or printer they are drawn on,
/// so that lines and pages end at the same words everywhere. It has the resolution in which formats are given, because Qt
/// fits only some of them, such as fonts, to that of a device, and not the indents of paragraphs.
class PaperDevice : public QPaintDevice {
 public:
  QPaintEngine* paintEngine() const override { return nullptr; }

 protected:
  int metric(PaintDeviceMetric metric) const override;
};

}  // namespace snipdeck

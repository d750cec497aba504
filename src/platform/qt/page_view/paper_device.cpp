#include "platform/qt/page_view/paper_device.h"

namespace snipdeck {
namespace {

constexpr int kDotsPerInch = 96;

}  // namespace

int PaperDevice::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
      return kDotsPerInch;
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return qRound(devicePixelRatioFScale());
    default:
      return QPaintDevice::metric(metric);
  }
}

}  // namespace snipdeck

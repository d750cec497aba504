#include "platform/qt/zoomed_device.h"

namespace snipdeck {

int ZoomedDevice::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmDpiX:
    case PdmPhysicalDpiX:
      return Zoomed(m_widget.logicalDpiX());
    case PdmDpiY:
    case PdmPhysicalDpiY:
      return Zoomed(m_widget.logicalDpiY());
    case PdmWidth:
      return m_widget.width();
    case PdmHeight:
      return m_widget.height();
    case PdmWidthMM:
      return m_widget.widthMM();
    case PdmHeightMM:
      return m_widget.heightMM();
    case PdmNumColors:
      return m_widget.colorCount();
    case PdmDepth:
      return m_widget.depth();
    case PdmDevicePixelRatio:
      return qRound(m_widget.devicePixelRatioF());
    case PdmDevicePixelRatioScaled:
      return qRound(m_widget.devicePixelRatioF() * devicePixelRatioFScale());
    default:
      return QPaintDevice::metric(metric);
  }
}

}  // namespace snipdeck

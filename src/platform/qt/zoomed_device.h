#pragma once

#include <QPaintDevice>
#include <QWidget>

namespace snipdeck {

/// Stands in for a widget while text is laid out and claims a higher or lower resolution than the widget has.
/// Everything that is given in points, twips or inches so comes out larger or smaller, and the document itself stays as
/// it is.
class ZoomedDevice : public QPaintDevice {
 public:
  explicit ZoomedDevice(const QWidget& widget) : m_widget(widget) {}

  void SetPercent(int percent) { m_percent = percent; }
  QPaintEngine* paintEngine() const override { return nullptr; }

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  int Zoomed(int dotsPerInch) const { return qRound(dotsPerInch * m_percent / 100.0); }

  const QWidget& m_widget;
  int m_percent = 100;
};

}  // namespace snipdeck

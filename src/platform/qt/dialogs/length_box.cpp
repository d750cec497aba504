#include "platform/qt/dialogs/length_box.h"

namespace snipdeck {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPixelsPerCentimetre = kPixelsPerInch / 2.54;
constexpr double kPixelsPerPoint = kPixelsPerInch / 72;

bool IsMetric() {
  return QLocale().measurementSystem() == QLocale::MetricSystem;
}

}  // namespace

LengthBox::LengthBox(Unit unit, double from, double to, QWidget* parent) : QDoubleSpinBox(parent) {
  if (unit == Unit::Points) {
    m_pixelsPerUnit = kPixelsPerPoint;
    setSuffix(tr(" pt"));
    setDecimals(1);
  } else {
    m_pixelsPerUnit = IsMetric() ? kPixelsPerCentimetre : kPixelsPerInch;
    setSuffix(IsMetric() ? tr(" cm") : tr(" in"));
    setDecimals(2);
    setSingleStep(IsMetric() ? 0.25 : 0.1);
  }
  setRange(from / m_pixelsPerUnit, to / m_pixelsPerUnit);
  setAccelerated(true);
  connect(this, &QDoubleSpinBox::valueChanged, this, [this] { m_isEmpty = false; });
}

void LengthBox::SetLength(std::optional<double> pixels) {
  setValue(pixels.value_or(0) / m_pixelsPerUnit);
  m_given = pixels;
  m_shown = value();
  m_isEmpty = !pixels;
  setValue(m_shown);
  lineEdit()->setText(m_isEmpty ? QString() : textFromValue(m_shown) + suffix());
}

std::optional<double> LengthBox::Length() const {
  if (m_isEmpty) return std::nullopt;
  if (m_given && value() == m_shown) return m_given;
  return value() * m_pixelsPerUnit;
}

QString LengthBox::textFromValue(double value) const {
  return m_isEmpty ? QString() : locale().toString(value, 'f', decimals());
}

double LengthBox::valueFromText(const QString& text) const {
  return text.trimmed().isEmpty() || text == suffix() ? value() : QDoubleSpinBox::valueFromText(text);
}

QValidator::State LengthBox::validate(QString& text, int& position) const {
  if (m_isEmpty && (text.isEmpty() || text == suffix())) return QValidator::Acceptable;
  return QDoubleSpinBox::validate(text, position);
}

}  // namespace snipdeck

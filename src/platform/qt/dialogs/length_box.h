#pragma once

#include <optional>

#include <QDoubleSpinBox>

namespace snipdeck {

/// A length that is shown in centimetres or inches, as the user's country has it, or in points. It can also be empty,
/// where several paragraphs differ.
class LengthBox : public QDoubleSpinBox {
  Q_OBJECT

 public:
  enum class Unit { Ruler, Points };

  /// `from` and `to` in pixels of 1/96 inch.
  LengthBox(Unit unit, double from, double to, QWidget* parent = nullptr);

  /// In pixels; nothing shows an empty field.
  void SetLength(std::optional<double> pixels);
  /// In pixels; exactly what was set until the user changes it.
  std::optional<double> Length() const;

 protected:
  QString textFromValue(double value) const override;
  double valueFromText(const QString& text) const override;
  QValidator::State validate(QString& text, int& position) const override;

 private:
  double m_pixelsPerUnit;
  std::optional<double> m_given;
  double m_shown = 0;  // the value that stands for m_given
  bool m_isEmpty = false;
};

}  // namespace snipdeck

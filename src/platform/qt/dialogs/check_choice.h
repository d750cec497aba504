#pragma once

#include <optional>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

namespace snipdeck {

/// Check boxes and lists that show a value, or that several occur. Nothing stands for several.
inline void ShowChecked(QCheckBox& box, std::optional<bool> value) {
  box.setTristate(!value);
  box.setCheckState(!value ? Qt::PartiallyChecked : *value ? Qt::Checked : Qt::Unchecked);
}

inline std::optional<bool> CheckedIn(const QCheckBox& box) {
  if (box.checkState() == Qt::PartiallyChecked) return std::nullopt;
  return box.isChecked();
}

/// The entries of the list stand in the order of the values.
template <typename T>
void ShowChoice(QComboBox& box, std::optional<T> value) {
  box.setCurrentIndex(value && static_cast<int>(*value) < box.count() ? static_cast<int>(*value) : -1);
}

template <typename T>
std::optional<T> ChoiceIn(const QComboBox& box) {
  if (box.currentIndex() < 0) return std::nullopt;
  return static_cast<T>(box.currentIndex());
}

/// A label whose mnemonic leads to `field`.
inline QLabel* LabelFor(const QString& caption, QWidget* field) {
  auto* const label = new QLabel(caption);
  label->setBuddy(field);
  return label;
}

}  // namespace snipdeck

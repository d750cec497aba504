#pragma once

#include <QString>

class QLabel;

namespace snipdeck {

/// A label that shows the value which `caption` names: of a long one the beginning and the end, with the whole as its
/// tool tip. The caller owns it.
QLabel* MakeValueLabel(const QString& caption, const QString& value);

}  // namespace snipdeck

#pragma once

#include <QKeyEvent>

namespace snipdeck {

/// Whether a key comes with a character only because Alt was held for a mnemonic that nobody has. Keyboards that type
/// characters by Alt and Ctrl together are left alone.
inline bool IsUnmeantText(const QKeyEvent& key) {
  const Qt::KeyboardModifiers held = key.modifiers();
  if (!held.testFlag(Qt::AltModifier) || held.testFlag(Qt::ControlModifier)) return false;
  return !key.text().isEmpty() && key.text().at(0).isPrint();
}

}  // namespace snipdeck

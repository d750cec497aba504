#pragma once

#include <QWidget>

namespace snipdeck {

/// Brings a window that is maximised, minimised or as large as the screen into the normal state, and gives the window
/// manager half a second to do it, so that sizes set afterwards are not overtaken.
void BringToNormalState(QWidget& window);

}  // namespace snipdeck

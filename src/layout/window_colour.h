#pragma once

#include <QColor>
#include <QWidget>

namespace snipdeck {

/// Gives a window's background, its command buttons and the label "Format" a colour, and the texts on them black or
/// white. A button whose name contains "cmdExit" keeps its own. Everything else on the window keeps the colours of the
/// desktop.
void ColourWindow(QWidget& window, const QColor& colour);

}  // namespace snipdeck

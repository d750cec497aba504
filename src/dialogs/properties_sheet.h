#pragma once

#include <QString>

class QWidget;

namespace snipdeck {

/// What the system knows of a file, for desktops that have no such sheet themselves. Shows nothing where there is no
/// file. Returns at once.
void ShowPropertiesSheet(const QString& path, QWidget& owner);

}  // namespace snipdeck

#pragma once

#include <QStringList>

namespace snipdeck {

/// Every font family of the system once, in alphabetical order.
QStringList FontFamilyNames();

}  // namespace snipdeck

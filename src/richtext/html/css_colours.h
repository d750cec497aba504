#pragma once

#include <QString>

namespace snipdeck {

/// The first colour among the words of a value in lower case, as "#rrggbb" or "transparent"; empty when there is none.
/// What is partly transparent is mixed with white, since a document knows opaque colours only.
QString CssColour(const QString& value);

}  // namespace snipdeck

#pragma once

#include <QString>

namespace snipdeck {

/// The declarations of a style attribute that a document can show, each in the form that Qt reads: lengths in pixels,
/// font sizes in points. What names a file, what only an office program understands and what is out of any sensible
/// range is left out. `fontSize` is the size in points of what surrounds the element; it becomes the element's.
QString FilterDeclarations(QStringView declarations, double& fontSize);

/// The rules of a style sheet, filtered likewise; at most `maxRules` of them.
QString FilterStyleSheet(QStringView sheet, int maxRules);

}  // namespace snipdeck

#pragma once

#include <QStringView>

#include "richtext/file_format.h"

namespace snipdeck {

/// The format that a file is loaded as, by the end of its name in any case, dot included. `wide` is the rule for the
/// boxes, which take server pages as HTML; the cumulative text and the editor take them as plain text.
FileFormat LoadFormatForName(QStringView name, bool wide);

/// The format that a file is saved in, by the last letters of its name in any case; the dot plays no part.
FileFormat SaveFormatForName(QStringView name);

}  // namespace snipdeck

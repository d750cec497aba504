#pragma once

#include <QString>

namespace snipdeck {

/// Why CUPS did not take the job that was handed to it just now; empty where it took it, or where another system prints.
/// Qt hands jobs to CUPS without looking at its answer.
QString CupsComplaint();

}  // namespace snipdeck

#pragma once

#include "platform/page_geometry.h"

class QTextFrameFormat;

namespace snipdeck {

/// Page size and margins as the text says them. The first section's words count before the document's own.
struct RtfPage {
  static constexpr int kUnsaid = -1;
  static constexpr PageGeometry kNothingSaid{kUnsaid, kUnsaid, kUnsaid, kUnsaid, kUnsaid, kUnsaid};

  PageGeometry document = kNothingSaid;
  PageGeometry section = kNothingSaid;
  int sectionsEnded = 0;

  /// Sets what is known as properties.
  void Store(QTextFrameFormat& target) const;
};

}  // namespace snipdeck

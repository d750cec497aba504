#pragma once

class QTextFrameFormat;

namespace snipdeck {

/// Page size and margins in twips; 0 means that the text does not say. The first section's words count before the
/// document's own.
struct RtfPage {
  struct Geometry {
    int width = 0;
    int height = 0;
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
  };
  Geometry document;
  Geometry section;
  int sectionsEnded = 0;

  /// Sets what is known as properties.
  void Store(QTextFrameFormat& target) const;
};

}  // namespace snipdeck

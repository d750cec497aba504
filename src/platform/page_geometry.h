#pragma once

namespace snipdeck {

/// A page and its margins, in twips. As it is made, A4 with margins of an inch.
struct PageGeometry {
  int width = 11906;
  int height = 16838;
  int left = 1440;
  int top = 1440;
  int right = 1440;
  int bottom = 1440;

  bool operator==(const PageGeometry&) const = default;
};

}  // namespace snipdeck

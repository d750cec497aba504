#pragma once

#include <cstdint>

namespace snipdeck {

/// The format codes by which a text is loaded and saved.
enum class FileFormat : std::int16_t {
  PlainText = 1,
  Html = 4,
  Rtf = 5,
  Doc = 9,
  Xml = 10,
  Css = 11,
  Pdf = 12,
  Docx = 13,
  Xlsx = 15,
};

}  // namespace snipdeck

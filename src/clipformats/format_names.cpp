#include "clipformats/format_names.h"

#include <array>

namespace snipdeck {

namespace {

// From format 1 on.
constexpr std::array<const char*, 17> kNames = {"Text",
                                                "Bitmap Picture",
                                                "Meta-File Picture",
                                                "Microsoft Symbolic Link (SYLK) data.",
                                                "Software Arts' Data Interchange information.",
                                                "Tagged Image File Format (TIFF) Picture",
                                                "Text (OEM)",
                                                "DIB Bitmap Picture",
                                                "Colour Palette",
                                                "Pen Data",
                                                "RIFF Audio data",
                                                "Wave File",
                                                "Text (Unicode)",
                                                "Enhanced Meta-File Picture",
                                                "File List",
                                                "",
                                                ""};

}  // namespace

std::optional<QString> StandardFormatName(ClipboardFormat format) {
  if (format < 1 || format > static_cast<ClipboardFormat>(kNames.size())) return std::nullopt;
  return QString::fromLatin1(kNames[static_cast<std::size_t>(format - 1)]);
}

}  // namespace snipdeck

#pragma once

#include <cstdint>

namespace snipdeck {

/// Numbers of the clipboard formats, those of the Windows clipboard. Formats registered by name lie from 0xC000 up.
using ClipboardFormat = std::int32_t;

inline constexpr ClipboardFormat kFormatText = 1;
inline constexpr ClipboardFormat kFormatBitmap = 2;
inline constexpr ClipboardFormat kFormatDib = 8;
inline constexpr ClipboardFormat kFormatUnicodeText = 13;
inline constexpr ClipboardFormat kFormatFileList = 15;
inline constexpr ClipboardFormat kFirstRegisteredFormat = 0xC000;
/// The number by which the simple clipboard access names rich text: 0xBF01 read as a signed 16-bit number.
inline constexpr ClipboardFormat kFormatRichText = -16639;

}  // namespace snipdeck

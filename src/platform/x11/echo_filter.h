#pragma once

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

#include "platform/clipboard.h"

namespace snipdeck {

/// Who made a copy, when, and in which forms.
struct CopyOrigin {
  /// The client part of the owner's window.
  std::uint32_t client = 0;
  /// The server's time of the change in milliseconds; 0 if it is not known.
  xcb_timestamp_t time = 0;
  /// The offered targets that we read (rich text, text, images, file lists), sorted.
  std::vector<xcb_atom_t> readable;
  /// All offered targets but those of the protocol itself.
  std::size_t targetCount = 0;
};

/// Tells a copy that a person made from one that a second clipboard program makes of it: some take every copy over at
/// once, in fewer forms, to keep it. A person who copies the same text twice does so from the same program or in all
/// its forms.
class EchoFilter {
 public:
  /// Longest time between a copy and its echo.
  static constexpr xcb_timestamp_t kWithinMs = 2000;

  /// Whether the copy repeats the last one that was told.
  bool IsEcho(const CopyOrigin& origin, const ClipboardSnapshot& contents) const;
  void Told(const CopyOrigin& origin, const ClipboardSnapshot& contents);

 private:
  CopyOrigin m_origin;
  ClipboardSnapshot m_contents;
};

}  // namespace snipdeck

#include "platform/x11/echo_filter.h"

#include <algorithm>

namespace snipdeck {

namespace {

bool HasFewerForms(const CopyOrigin& later, const CopyOrigin& earlier) {
  return later.targetCount < earlier.targetCount || later.readable.size() < earlier.readable.size();
}

/// What `part` holds is the same in `whole`, which may hold more.
bool IsPartOf(const ClipboardSnapshot& part, const ClipboardSnapshot& whole) {
  if (part.hasRichText &&
      (part.richText.encoding != whole.richText.encoding || part.richText.bytes != whole.richText.bytes))
    return false;
  if (part.hasText && (!whole.hasText || part.text != whole.text)) return false;
  if (part.hasFileList && part.files != whole.files) return false;
  return !part.hasBitmap || whole.hasBitmap;
}

}  // namespace

bool EchoFilter::IsEcho(const CopyOrigin& origin, const ClipboardSnapshot& contents) const {
  if (origin.time == 0 || m_origin.time == 0 || origin.client == m_origin.client) return false;
  // Unsigned, so that it holds across the server's wrap after 49 days.
  if (origin.time - m_origin.time > kWithinMs) return false;
  return HasFewerForms(origin, m_origin) &&
         std::includes(m_origin.readable.begin(), m_origin.readable.end(), origin.readable.begin(),
                       origin.readable.end()) &&
         IsPartOf(contents, m_contents);
}

void EchoFilter::Told(const CopyOrigin& origin, const ClipboardSnapshot& contents) {
  m_origin = origin;
  m_contents = contents;
}

}  // namespace snipdeck

#include "richtext/clipboard_text.h"

namespace snipdeck {

std::optional<RichText> FormattedText(const Clipboard& clipboard) {
  return FormattedText(clipboard.RichText());
}

std::optional<RichText> FormattedText(const RichTextPayload& payload) {
  if (payload.encoding == RichTextPayload::Encoding::None) return {};
  if (payload.encoding == RichTextPayload::Encoding::Rtf) return RichText::FromRtf(payload.bytes);
  const RichText text = RichText::FromHtml(payload.bytes);
  return text.IsEmpty() ? std::optional<RichText>() : text;
}

}  // namespace snipdeck

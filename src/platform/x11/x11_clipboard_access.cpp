#include "platform/x11/x11_clipboard_access.h"

#include <algorithm>

#include "platform/x11/format_blocks.h"
#include "platform/x11/format_table.h"
#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

Failure NothingThere(const QString& what) {
  return {Failure::Kind::NotFound, QStringLiteral("the clipboard holds no %1").arg(what)};
}

}  // namespace

std::vector<QByteArray> X11ClipboardAccess::Offered(std::span<const char* const> names) {
  const std::vector<QByteArray> targets = m_contents.Targets();
  std::vector<QByteArray> found;
  for (const char* name : names) {
    if (std::find(targets.begin(), targets.end(), name) != targets.end()) found.emplace_back(name);
  }
  return found;
}

bool X11ClipboardAccess::TextIsOnlyTheFileList() {
  return !Offered(FileManagerTargets()).empty() && HasFormat(kFormatFileList);
}

bool X11ClipboardAccess::HasFormat(ClipboardFormat format) {
  const bool isText = format == kFormatText || format == kFormatUnicodeText;
  if (isText && TextIsOnlyTheFileList()) return false;
  if (format != kFormatRichText) return !Offered(TargetsOfStandardFormat(format)).empty();
  // A name is not enough: text/richtext may be a mail format, and a copied image comes with HTML but without text.
  return static_cast<bool>(RichText());
}

Result<RichTextPayload> X11ClipboardAccess::RichText() {
  Failure failure = NothingThere(QStringLiteral("rich text"));
  for (const QByteArray& target : Offered(RichTextTargets())) {
    const Result<QByteArray> bytes = m_contents.Read(target);
    if (bytes && LooksLikeRtf(bytes.Value())) return RichTextPayload{RichTextPayload::Encoding::Rtf, bytes.Value()};
    if (!bytes) failure = bytes.Error();
  }
  static constexpr const char* html[] = {kHtmlTarget};
  const bool htmlIsOnlyTheImage = !Offered(ImageTargets()).empty() && Offered(TextTargets()).empty();
  if (htmlIsOnlyTheImage || TextIsOnlyTheFileList() || Offered(html).empty()) return failure;
  const Result<QByteArray> bytes = m_contents.Read(kHtmlTarget);
  if (!bytes) return bytes.Error();
  if (bytes.Value().isEmpty()) return failure;
  return RichTextPayload{RichTextPayload::Encoding::Html, bytes.Value()};
}

Result<QString> X11ClipboardAccess::Text() {
  Failure failure = NothingThere(QStringLiteral("text"));
  for (const QByteArray& target : Offered(TextTargets())) {
    const Result<QByteArray> bytes = m_contents.Read(target);
    if (bytes) return DecodeText(target, bytes.Value());
    failure = bytes.Error();
  }
  return failure;
}

Result<EncodedPicture> X11ClipboardAccess::Picture() {
  Failure failure = NothingThere(QStringLiteral("picture"));
  for (const QByteArray& target : Offered(ImageTargets())) {
    if (PictureKind(target).isEmpty()) continue;
    const Result<QByteArray> bytes = m_contents.Read(target);
    if (bytes) return EncodedPicture{bytes.Value(), PictureKind(target)};
    failure = bytes.Error();
  }
  return failure;
}

Outcome X11ClipboardAccess::PutRichText(const TextOffer& offer) {
  OfferedData offers;
  if (!offer.rtf.isEmpty()) offers = OffersOfRtf(offer.rtf);
  if (!offer.html.isEmpty()) offers.emplace_back(kHtmlTarget, offer.html);
  for (auto& text : OffersOfText(offer.text)) offers.push_back(std::move(text));
  return m_contents.Replace(offers);
}

}  // namespace snipdeck

#pragma once

#include "platform/clipboard_access.h"
#include "platform/clipboard_writer.h"
#include "platform/x11/clipboard_handover.h"
#include "platform/x11/present_contents.h"

namespace snipdeck {

/// Simple access to the clipboard of an X server, for reading and writing.
class X11ClipboardAccess : public ClipboardAccess, public ClipboardWriter {
 public:
  X11ClipboardAccess(PresentContents& contents, QString holderProgram)
      : m_contents(contents), m_handover(std::move(holderProgram)) {}

  bool HasFormat(ClipboardFormat format) override;
  Result<RichTextPayload> RichText() override;
  Result<QString> Text() override;
  Result<EncodedPicture> Picture() override;

  Outcome EmptyClipboard() override { return m_contents.Clear(); }
  Outcome PutRichText(const TextOffer& offer) override;
  Outcome AddRtf(const QByteArray& rtf) override { return m_contents.Add(OffersOfRtf(rtf)); }
  Outcome HandOverAtExit() override { return m_handover.Run(); }

 private:
  std::vector<QByteArray> Offered(std::span<const char* const> names);
  bool TextIsOnlyTheFileList();

  PresentContents& m_contents;
  ClipboardHandover m_handover;
};

}  // namespace snipdeck

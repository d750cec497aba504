#pragma once

#include <optional>

#include <QMimeData>

#include "richtext/rich_text.h"

namespace snipdeck {

/// A formatted text on its way to the clipboard or to a drop. Each form is written when somebody asks for it.
class RichTextMime : public QMimeData {
 public:
  explicit RichTextMime(RichText text) : m_text(std::move(text)) {}

  QStringList formats() const override;
  bool hasFormat(const QString& mimeType) const override { return formats().contains(mimeType); }

 protected:
  QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

 private:
  RichText m_text;
};

/// The best text that `source` offers: RTF, then HTML, then plain text; none when it offers no text.
std::optional<RichText> RichTextFromMime(const QMimeData& source);
/// Whether RichTextFromMime would find something, told from the offered names alone.
bool OffersText(const QMimeData& source);

}  // namespace snipdeck

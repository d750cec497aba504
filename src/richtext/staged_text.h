#pragma once

#include "richtext/rich_text.h"

namespace snipdeck {

/// The text that a capture is staged in before it is filed, or a retrieved one on its way into a box: formatted text
/// that also knows itself as plain text.
class StagedText {
 public:
  void SetText(const QString& text) { m_text = RichText::FromPlainText(text); }
  void SetSelRtf(const RichText& text) { m_text = text; }
  QString Text() const { return m_text.PlainText(); }
  const RichText& SelRtf() const { return m_text; }

 private:
  RichText m_text;
};

}  // namespace snipdeck

#pragma once

#include <QHash>
#include <QTextBlock>

#include "richtext/rtf/rtf_header.h"

namespace snipdeck {

/// Turns paragraph formats into control words, each format once.
class RtfParagraphWords {
 public:
  /// `indentWidth`: pixels of one step of a paragraph's indent.
  RtfParagraphWords(RtfHeader& header, double indentWidth) : m_header(header), m_indentWidth(indentWidth) {}

  /// The words that switch from any paragraph to the format of `block`, without what names its list and its table.
  const RtfOutput& For(const QTextBlock& block);

 private:
  RtfOutput Build(const QTextBlock& block);
  void Indents(RtfOutput& out, const QTextBlock& block);
  void Spacing(RtfOutput& out, const QTextBlockFormat& format);
  void Breaks(RtfOutput& out, const QTextBlockFormat& format);
  void Decoration(RtfOutput& out, const QTextBlockFormat& format);

  RtfHeader& m_header;
  const double m_indentWidth;
  QHash<int, RtfOutput> m_known;
};

}  // namespace snipdeck

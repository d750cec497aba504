#pragma once

#include <QHash>
#include <QTextCharFormat>

#include "richtext/rtf/rtf_header.h"

namespace snipdeck {

/// Turns character formats into control words, each format once.
class RtfCharacterWords {
 public:
  /// `defaults` tells what a format without a font or size is shown in.
  RtfCharacterWords(RtfHeader& header, const QFont& defaults) : m_header(header), m_defaults(defaults) {}

  /// The words that switch from any format to the one that the document knows as `index`.
  const RtfOutput& For(const QTextCharFormat& format, int index);

 private:
  RtfOutput Build(const QTextCharFormat& format);
  void Font(RtfOutput& out, const QTextCharFormat& format);
  void Underline(RtfOutput& out, const QTextCharFormat& format);
  void Effects(RtfOutput& out, const QTextCharFormat& format);
  void Position(RtfOutput& out, const QTextCharFormat& format);
  void Colours(RtfOutput& out, const QTextCharFormat& format);

  RtfHeader& m_header;
  const QFont m_defaults;
  QHash<int, RtfOutput> m_known;
};

}  // namespace snipdeck

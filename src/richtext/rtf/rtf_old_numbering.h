#pragma once

#include "richtext/rtf/rtf_destination.h"
#include "richtext/rtf/rtf_state.h"

namespace snipdeck {

class RtfParser;

/// A \pn group, which says how the paragraph that it stands in is numbered.
class RtfOldNumberingReader : public RtfDestination {
 public:
  explicit RtfOldNumberingReader(RtfParser& parser) : m_parser(parser) {}
  bool Word(std::string_view word, int value, bool hasValue) override;
  void Close() override;

 private:
  RtfParser& m_parser;
  RtfOldNumbering m_numbering;
  QString m_before;
  QString m_after;
};

}  // namespace snipdeck

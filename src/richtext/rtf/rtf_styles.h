#pragma once

#include <QHash>

#include "richtext/rtf/rtf_destination.h"
#include "richtext/rtf/rtf_state.h"

namespace snipdeck {

class RtfParser;

/// The style sheet. A style is what the formatting words of its entry make of the default state.
class RtfStyles : public RtfDestination {
 public:
  explicit RtfStyles(RtfParser& parser) : m_parser(parser) {}

  /// Takes over what the style says and the state leaves at its defaults.
  void ApplyParagraphStyle(int number, GroupState& state) const;
  void ApplyCharacterStyle(int number, GroupState& state) const;

  void Text(QStringView text) override;
  bool Word(std::string_view word, int value, bool hasValue) override;
  void GroupEnd() override;
  void Close() override { GroupEnd(); }

 private:
  enum class Kind { None, Paragraph, Character, Other };
  struct Style {
    CharacterState character;
    ParagraphState paragraph;
  };
  void ApplyBase(int number);

  RtfParser& m_parser;
  QHash<int, Style> m_paragraphStyles;
  QHash<int, Style> m_characterStyles;
  Kind m_kind = Kind::None;
  int m_number = 0;
  QString m_name;
};

}  // namespace snipdeck

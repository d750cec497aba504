#pragma once

#include <unordered_map>

#include <QHash>
#include <QStringList>

#include "richtext/rtf/rtf_colours.h"
#include "richtext/rtf/rtf_fonts.h"
#include "richtext/rtf/rtf_state.h"
#include "richtext/text_flow.h"

namespace snipdeck {

/// How a paragraph belongs to a list.
struct RtfListItem {
  int list = -1;  ///< Index of the list in FlowFormats; -1 none.
  int level = 0;
  QString label;       ///< Only where Qt's list cannot show it.
  int textIndent = 0;  ///< Twips from the margin to the text.
};

/// Turns the states of the reader into Qt's formats, each state once.
class RtfFormats {
 public:
  RtfFormats(const RtfFonts& fonts, const RtfColours& colours) : m_fonts(fonts), m_colours(colours) {}

  /// Index of the character format.
  int Character(const CharacterState& state);
  /// Index of a format that is used once, as that of a picture.
  int AddCharacter(const QTextCharFormat& format);
  int Paragraph(const ParagraphState& state, const RtfListItem& item);
  /// Index of a paragraph's format without the space behind it.
  int WithoutSpaceAfter(int paragraph);
  /// Turns text without a colour white that stands on a dark `ground` and on no shading of its own.
  void ShowOn(QRgb ground, Flow& flow);
  /// The same with a single paragraph on its own shading.
  void ShowOnShading(Flow& paragraph);
  std::vector<QTextListFormat>& Lists() { return m_formats.lists; }
  /// 1 + index of the link, to be kept in CharacterState.
  int AddLink(const QString& target);
  void SetStyleName(bool ofParagraph, int number, const QString& name);
  void SetDefaultFont(int number) { m_defaultFont = number; }
  int DefaultFont() const { return m_defaultFont; }
  int EffectiveFont(const CharacterState& state) const;
  FlowFormats Take() { return std::move(m_formats); }

 private:
  struct Hash {
    template <typename State>
    std::size_t operator()(const State& state) const {
      return HashOf(state);
    }
  };
  QTextCharFormat MakeCharacter(const CharacterState& state) const;
  void SetFont(QTextCharFormat& format, const CharacterState& state) const;
  void SetColours(QTextCharFormat& format, const CharacterState& state) const;
  void SetEffects(QTextCharFormat& format, const CharacterState& state) const;
  void TurnWhite(Flow& flow);
  using Items = std::vector<FlowItem>;
  void TurnWhite(Items::iterator run, Items::iterator paragraphEnd);
  int White(int character);
  QTextBlockFormat MakeParagraph(const ParagraphState& state) const;
  void SetSpacing(QTextBlockFormat& format, const ParagraphState& state) const;

  const RtfFonts& m_fonts;
  const RtfColours& m_colours;
  int m_defaultFont = 0;
  FlowFormats m_formats;
  std::unordered_map<CharacterState, int, Hash> m_characters;
  std::unordered_map<ParagraphState, int, Hash> m_paragraphs;
  QHash<int, int> m_withoutSpaceAfter;
  QHash<int, int> m_white;  ///< By the index of a format that of its white counterpart.
  CharacterState m_lastState;
  int m_lastIndex = -1;
  QStringList m_links;
  QHash<int, QString> m_characterStyles;
  QHash<int, QString> m_paragraphStyles;
};

}  // namespace snipdeck

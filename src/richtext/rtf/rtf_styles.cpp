#include "richtext/rtf/rtf_styles.h"

#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxStyles = 4000;
constexpr qsizetype kMaxNameLength = 256;
constexpr int kNoBase = 222;

}  // namespace

void RtfStyles::ApplyParagraphStyle(int number, GroupState& state) const {
  const auto found = m_paragraphStyles.constFind(number);
  if (found != m_paragraphStyles.constEnd()) {
    MergeStyle(state.paragraph, found->paragraph);
    MergeStyle(state.character, found->character);
  }
  state.paragraph.style = number;
}

void RtfStyles::ApplyCharacterStyle(int number, GroupState& state) const {
  const auto found = m_characterStyles.constFind(number);
  if (found != m_characterStyles.constEnd()) MergeStyle(state.character, found->character);
  state.character.style = number;
}

void RtfStyles::Text(QStringView text) {
  // An entry without a number is the one with number 0.
  if (m_kind == Kind::None) m_kind = Kind::Paragraph;
  if (m_name.size() < kMaxNameLength) m_name.append(text);
}

bool RtfStyles::Word(std::string_view word, int value, bool) {
  if (word == "s") {
    m_kind = Kind::Paragraph;
    m_number = value;
  } else if (word == "cs") {
    m_kind = Kind::Character;
    m_number = value;
  } else if (word == "ds" || word == "ts") {
    m_kind = Kind::Other;
  } else if (word == "sbasedon") {
    ApplyBase(value);
  } else {
    return false;
  }
  return true;
}

void RtfStyles::ApplyBase(int number) {
  if (number == kNoBase || number == m_number) return;
  GroupState& state = m_parser.State();
  if (m_kind == Kind::Character) {
    ApplyCharacterStyle(number, state);
  } else {
    ApplyParagraphStyle(number, state);
  }
}

void RtfStyles::GroupEnd() {
  const qsizetype end = m_name.indexOf(QLatin1Char(';'));
  const QString name = m_name.left(end).trimmed();
  auto& styles = m_kind == Kind::Character ? m_characterStyles : m_paragraphStyles;
  if (!name.isEmpty() && m_kind != Kind::Other && styles.size() < kMaxStyles) {
    Style style{m_parser.State().character, m_parser.State().paragraph};
    style.character.style = 0;
    style.paragraph.style = 0;
    styles.insert(m_number, style);
    // The plain paragraph style needs no name.
    if (m_number != 0) m_parser.Formats().SetStyleName(m_kind == Kind::Paragraph, m_number, name);
  }
  m_kind = Kind::None;
  m_number = 0;
  m_name.clear();
}

}  // namespace snipdeck

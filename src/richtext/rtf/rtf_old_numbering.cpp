#include "richtext/rtf/rtf_old_numbering.h"

#include "richtext/rtf/rtf_parser.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMaxText = 64;

// The number format of a word, as \levelnfc counts them; -1 for other words.
int FormatOf(std::string_view word) {
  if (word == "pndec") return 0;
  if (word == "pnucrm") return 1;
  if (word == "pnlcrm") return 2;
  if (word == "pnucltr") return 3;
  if (word == "pnlcltr") return 4;
  if (word == "pnord" || word == "pncard") return 0;
  return -1;
}

}  // namespace

bool RtfOldNumberingReader::Word(std::string_view word, int value, bool hasValue) {
  const int format = FormatOf(word);
  if (format >= 0) {
    if (m_numbering.kind == RtfOldNumbering::None) m_numbering.kind = RtfOldNumbering::Number;
    m_numbering.format = static_cast<std::int16_t>(format);
  } else if (word == "pnlvlblt") {
    m_numbering.kind = RtfOldNumbering::Bullet;
  } else if (word == "pnlvlbody") {
    m_numbering.kind = RtfOldNumbering::Number;
  } else if (word == "pnlvl") {
    m_numbering.kind = RtfOldNumbering::Number;
    m_numbering.level = static_cast<std::int8_t>(hasValue ? std::clamp(value, 1, 9) - 1 : 0);
  } else if (word == "pnstart") {
    m_numbering.start = std::clamp(value, 0, 1'000'000);
  } else if (word == "pnf") {
    m_parser.State().character.font = value;
  } else if (word == "pntxtb") {
    m_parser.Open(std::make_unique<RtfLabelCollector>(m_before));
  } else if (word == "pntxta") {
    m_parser.Open(std::make_unique<RtfLabelCollector>(m_after));
  } else {
    return false;
  }
  return true;
}

void RtfOldNumberingReader::Close() {
  m_numbering.before = m_before.left(kMaxText).toUtf8();
  m_numbering.after = m_after.left(kMaxText).toUtf8();
  m_parser.OuterState().paragraph.numbering = m_numbering;
}

}  // namespace snipdeck

#include "richtext/rtf/rtf_tokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace snipdeck {
namespace {

// Longer names exist in no version of the format; what follows is text again.
constexpr qsizetype kLongestWord = 40;

constexpr std::array<bool, 256> MakeSpecialBytes() {
  std::array<bool, 256> special{};
  for (const char c : {'\\', '{', '}', '\r', '\n', '\0', '\t'}) special[static_cast<unsigned char>(c)] = true;
  return special;
}
constexpr std::array<bool, 256> kSpecial = MakeSpecialBytes();

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

bool RtfTokenizer::Next(RtfToken& token) {
  while (m_at < m_rtf.size()) {
    const char c = m_rtf[m_at];
    if (c == '\r' || c == '\n' || c == '\0') {
      ++m_at;
      continue;
    }
    switch (c) {
      case '{':
        ++m_at;
        token.kind = RtfToken::Kind::GroupStart;
        return true;
      case '}':
        ++m_at;
        token.kind = RtfToken::Kind::GroupEnd;
        return true;
      case '\t':
        ++m_at;
        token.kind = RtfToken::Kind::Symbol;
        token.value = '\t';
        return true;
      case '\\':
        ++m_at;
        ReadControl(token);
        return true;
      default:
        ReadText(token);
        return true;
    }
  }
  return false;
}

bool RtfTokenizer::SkipTo(QByteArrayView mark) {
  const qsizetype found = m_rtf.indexOf(mark, m_at);
  m_at = found < 0 ? m_rtf.size() : found;
  return found >= 0;
}

QByteArrayView RtfTokenizer::TakeSpecialByte() {
  const QByteArrayView next = Ahead(2);
  if (next.isEmpty() || !QByteArrayView("\\{}").contains(next[0])) return {};
  if (next[0] == '\\' && next.size() > 1 && QByteArrayView("\\{}'\r\n").contains(next[1])) return {};
  return m_rtf.sliced(m_at++, 1);
}

void RtfTokenizer::ReadText(RtfToken& token) {
  const qsizetype begin = m_at;
  while (m_at < m_rtf.size() && !kSpecial[static_cast<unsigned char>(m_rtf[m_at])]) ++m_at;
  token.kind = RtfToken::Kind::Text;
  token.bytes = m_rtf.sliced(begin, m_at - begin);
}

void RtfTokenizer::ReadControl(RtfToken& token) {
  if (m_at == m_rtf.size()) {
    token.kind = RtfToken::Kind::Text;
    token.bytes = {};
    return;
  }
  const char c = m_rtf[m_at];
  if (IsLetter(c)) return ReadWord(token);
  ++m_at;
  if (c == '\'') return ReadHex(token);
  // An escaped line end of two bytes is one paragraph, not two.
  if (c == '\r' && m_at < m_rtf.size() && m_rtf[m_at] == '\n') ++m_at;
  token.kind = RtfToken::Kind::Symbol;
  token.value = static_cast<unsigned char>(c);
}

void RtfTokenizer::ReadWord(RtfToken& token) {
  const qsizetype begin = m_at;
  const qsizetype end = std::min(m_rtf.size(), m_at + kLongestWord);
  while (m_at < end && IsLetter(m_rtf[m_at])) ++m_at;
  token.kind = RtfToken::Kind::Word;
  token.word = std::string_view(m_rtf.data() + begin, static_cast<std::size_t>(m_at - begin));
  ReadNumber(token);
  if (m_at < m_rtf.size() && m_rtf[m_at] == ' ') ++m_at;
  if (token.word == "bin") ReadBinary(token);
}

void RtfTokenizer::ReadNumber(RtfToken& token) {
  token.value = 0;
  token.hasValue = false;
  const bool negative = m_at + 1 < m_rtf.size() && m_rtf[m_at] == '-' && IsDigit(m_rtf[m_at + 1]);
  if (negative) ++m_at;
  std::int64_t number = 0;
  for (; m_at < m_rtf.size() && IsDigit(m_rtf[m_at]); ++m_at) {
    number = std::min<std::int64_t>(number * 10 + (m_rtf[m_at] - '0'), std::numeric_limits<int>::max());
    token.hasValue = true;
  }
  token.value = static_cast<int>(negative ? -number : number);
}

void RtfTokenizer::ReadHex(RtfToken& token) {
  token.kind = RtfToken::Kind::Hex;
  token.value = 0;
  int digits = 0;
  for (; digits < 2 && m_at < m_rtf.size(); ++digits, ++m_at) {
    const int digit = HexDigit(m_rtf[m_at]);
    if (digit < 0) break;
    token.value = token.value * 16 + digit;
  }
  if (digits > 0) return;
  token.kind = RtfToken::Kind::Text;
  token.bytes = {};
}

void RtfTokenizer::ReadBinary(RtfToken& token) {
  token.kind = RtfToken::Kind::Binary;
  const qsizetype left = m_rtf.size() - m_at;
  qsizetype size = std::max(token.value, 0);
  // More than there is: the stream was cut inside the data, or, when it still has its end, the number is wrong.
  if (size > left) size = LooksComplete() ? 0 : left;
  token.bytes = m_rtf.sliced(m_at, size);
  m_at += size;
}

bool RtfTokenizer::LooksComplete() const {
  qsizetype last = m_rtf.size();
  while (last > m_at &&
         (m_rtf[last - 1] == '\r' || m_rtf[last - 1] == '\n' || m_rtf[last - 1] == '\0' || m_rtf[last - 1] == ' ')) {
    --last;
  }
  return last > m_at && m_rtf[last - 1] == '}';
}

}  // namespace snipdeck

#include "richtext/rtf/rtf_output.h"

#include <array>
#include <charconv>

#include "richtext/text/code_page_1252.h"

namespace snipdeck {
namespace {

bool IsPlain(char16_t character) {
  return character >= 0x20 && character < 0x7F && character != u'\\' && character != u'{' && character != u'}';
}

int ByteIn1252(char16_t character) {
  if (character > 0xA0 && character <= 0xFF) return character;
  for (size_t i = 0; i < kCodePage1252.size(); ++i) {
    if (character && kCodePage1252[i] == character) return static_cast<int>(0x80 + i);
  }
  return -1;
}

void AppendNumber(QByteArray& bytes, int number) {
  std::array<char, 12> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  bytes.append(digits.data(), result.ptr - digits.data());
}

}  // namespace

void RtfOutput::Word(const char* name) {
  m_bytes.append('\\').append(name);
  m_afterWord = true;
}

void RtfOutput::Word(const char* name, int number) {
  Word(name);
  AppendNumber(m_bytes, number);
}

void RtfOutput::OpenOptional(const char* name) {
  m_bytes.append("{\\*");
  Word(name);
}

void RtfOutput::OpenGroup(const char* name) {
  m_bytes.append('{');
  Word(name);
}

void RtfOutput::OpenGroup() {
  m_bytes.append('{');
  m_afterWord = false;
}

void RtfOutput::CloseGroup() {
  m_bytes.append('}');
  m_afterWord = false;
}

void RtfOutput::Delimit() {
  if (m_afterWord) m_bytes.append(' ');
  m_afterWord = false;
}

void RtfOutput::Text(QStringView text) {
  for (qsizetype at = 0; at < text.size();) {
    qsizetype end = at;
    while (end < text.size() && IsPlain(text[end].unicode())) ++end;
    if (end > at) {
      Delimit();
      const qsizetype size = m_bytes.size();
      m_bytes.resize(size + end - at);
      char* out = m_bytes.data() + size;
      for (; at < end; ++at) *out++ = static_cast<char>(text[at].unicode());
    } else {
      Character(text[at++].unicode());
    }
  }
}

void RtfOutput::Character(char16_t character) {
  switch (character) {
    case u'\\':
    case u'{':
    case u'}':
      m_bytes.append('\\').append(static_cast<char>(character));
      m_afterWord = false;
      return;
    case u'\t':
      return Word("tab");
    case QChar::LineSeparator:
      return Word("line");
    case QChar::Nbsp:
      return Raw("\\~");
    case QChar::SoftHyphen:
      return Raw("\\-");
    case 0x2011:
      return Raw("\\_");
    default:
      break;
  }
  if (character < 0x20) return;
  if (const int byte = ByteIn1252(character); byte >= 0) {
    constexpr char kHex[] = "0123456789abcdef";
    const char escape[] = {'\\', '\'', kHex[byte >> 4], kHex[byte & 15]};
    return Raw(QByteArrayView(escape, 4));
  }
  Word("u", static_cast<qint16>(character));
  Raw("?");
}

void RtfOutput::Append(const RtfOutput& other) {
  m_bytes.append(other.m_bytes);
  m_afterWord = other.m_bytes.isEmpty() ? m_afterWord : other.m_afterWord;
}

void RtfOutput::Raw(QByteArrayView bytes) {
  m_bytes.append(bytes.data(), bytes.size());
  m_afterWord = false;
}

}  // namespace snipdeck

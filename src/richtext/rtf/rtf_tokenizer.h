#pragma once

#include <algorithm>
#include <string_view>

#include <QByteArrayView>

namespace snipdeck {

/// One piece of an RTF stream. The views point into the bytes that the tokenizer was given.
struct RtfToken {
  enum class Kind {
    GroupStart,
    GroupEnd,
    Word,    ///< word, and value where hasValue.
    Symbol,  ///< A control symbol; value is its character.
    Text,    ///< bytes, without line ends.
    Hex,     ///< A character escape; value is the byte, 0 to 255.
    Binary,  ///< bytes of a \bin.
  };
  Kind kind = Kind::Text;
  std::string_view word;
  QByteArrayView bytes;
  int value = 0;
  bool hasValue = false;
};

/// Splits RTF into tokens. It knows no document: what it returns is what the bytes say, with every number clamped to
/// the range of int, and it never fails: broken escapes are passed over, and after any byte it finds its way again.
class RtfTokenizer {
 public:
  explicit RtfTokenizer(QByteArrayView rtf) : m_rtf(rtf) {}

  /// The next token; false at the end of the bytes.
  bool Next(RtfToken& token);

  /// The next byte as text although it looks like a backslash or a brace; nothing where it is none of them, or where
  /// it begins an escape.
  QByteArrayView TakeSpecialByte();

  /// Up to `size` of the bytes that follow the last token.
  QByteArrayView Ahead(qsizetype size) const { return m_rtf.sliced(m_at, std::min(size, m_rtf.size() - m_at)); }

  /// How much of the bytes has been read, from 0 to 1.
  double Part() const { return static_cast<double>(m_at) / static_cast<double>(m_rtf.size()); }

  /// Goes on where `mark` next stands in the bytes; false, at their end, when it does not.
  bool SkipTo(QByteArrayView mark);

 private:
  void ReadText(RtfToken& token);
  void ReadControl(RtfToken& token);
  void ReadWord(RtfToken& token);
  void ReadNumber(RtfToken& token);
  void ReadHex(RtfToken& token);
  void ReadBinary(RtfToken& token);
  bool LooksComplete() const;

  QByteArrayView m_rtf;
  qsizetype m_at = 0;
};

}  // namespace snipdeck

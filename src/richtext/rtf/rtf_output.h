#pragma once

#include <QByteArray>
#include <QStringView>

namespace snipdeck {

/// RTF in the making: appends control words, groups and text to one buffer and puts the delimiters where they are
/// needed.
class RtfOutput {
 public:
  void Reserve(qsizetype bytes) { m_bytes.reserve(bytes); }
  const QByteArray& Bytes() const { return m_bytes; }
  QByteArray TakeBytes() { return std::move(m_bytes); }

  /// A control word without or with its number; `name` has no backslash.
  void Word(const char* name);
  void Word(const char* name, int number);
  void WordIf(bool condition, const char* name) {
    if (condition) Word(name);
  }
  /// Starts a destination that a reader may skip when it does not know it: {\*\name
  void OpenOptional(const char* name);
  void OpenGroup(const char* name);
  void OpenGroup();
  void CloseGroup();
  /// Document text: code page 1252 where it has the character, \u with a "?" for old readers elsewhere.
  void Text(QStringView text);
  /// RTF made by another output, put in as it stands.
  void Append(const RtfOutput& other);
  /// Bytes of RTF syntax as they stand; must not begin with a letter or digit directly after a control word.
  void Raw(QByteArrayView bytes);
  void LineEnd() { Raw("\n"); }

 private:
  void Character(char16_t character);
  void Delimit();

  QByteArray m_bytes;
  bool m_afterWord = false;  ///< the next letter, digit, sign or blank would be taken for a part of the control word
};

}  // namespace snipdeck

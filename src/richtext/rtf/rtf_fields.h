#pragma once

#include <deque>

#include <QStringList>

#include "richtext/rtf/rtf_destination.h"

namespace snipdeck {

class RtfFormats;

/// The fields that are open: their instructions, and what these mean for the results.
class RtfFields {
 public:
  explicit RtfFields(RtfFormats& formats) : m_formats(formats) {}

  void Begin() { m_instructions.emplace_back(); }
  void End() {
    if (!m_instructions.empty()) m_instructions.pop_back();
  }
  /// The instruction of the innermost field, to be added to.
  QString& Instruction();
  /// The link that the innermost field's result carries, as kept in CharacterState; 0 for none.
  int Link();
  /// What the innermost field shows when it has no result: a symbol, the face of a button, or the section's number.
  QString TextWithoutResult(const QString& section) const;

 private:
  RtfFormats& m_formats;
  std::deque<QString> m_instructions;  ///< Collectors refer to them, so they must not move.
  QString m_stray;
};

/// A field instruction as its words; quotes group, and a doubled backslash stands for one.
QStringList SplitFieldInstruction(const QString& instruction);
/// The target of a HYPERLINK instruction; empty for other instructions.
QString HyperlinkTarget(const QString& instruction);

}  // namespace snipdeck

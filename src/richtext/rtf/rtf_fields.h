#pragma once

#include <deque>
#include <optional>

#include <QStringList>

#include "richtext/rtf/rtf_destination.h"
#include "richtext/rtf/rtf_state.h"

namespace snipdeck {

class RtfFormats;
class RtfParser;

/// A box to be ticked or a list to choose from, in a form to be filled in.
struct RtfFormField {
  static constexpr int kUndefined = 25;  ///< What writers say for no choice made yet.

  int choice = kUndefined;
  int defaultChoice = 0;
  std::deque<QString> entries;  ///< Collectors refer to them, so they must not move.

  int Choice() const { return choice == kUndefined ? defaultChoice : choice; }
};

struct RtfField {
  QString instruction;
  std::optional<CharacterState> format;  ///< Of the instruction's last characters.
  RtfFormField form;
};

/// The fields that are open: their instructions, and what these mean for the results.
class RtfFields {
 public:
  explicit RtfFields(RtfFormats& formats) : m_formats(formats) {}

  void Begin() { m_fields.emplace_back(); }
  void End() {
    if (!m_fields.empty()) m_fields.pop_back();
  }
  /// The innermost field, to be added to.
  RtfField& Innermost();
  /// The link that the innermost field's result carries, as kept in CharacterState; 0 for none.
  int Link();
  /// What the innermost field shows when it has no result: a symbol, the face of a button, the section's number, an
  /// equation as text, or what is chosen in a form.
  QString TextWithoutResult(const QString& section) const;

 private:
  RtfFormats& m_formats;
  std::deque<RtfField> m_fields;  ///< Collectors refer to them, so they must not move.
  RtfField m_stray;
};

/// Reads \formfield.
class RtfFormFieldReader : public RtfDestination {
 public:
  RtfFormFieldReader(RtfParser& parser, RtfFormField& form) : m_parser(parser), m_form(form) {}
  bool Word(std::string_view word, int value, bool hasValue) override;

 private:
  RtfParser& m_parser;
  RtfFormField& m_form;
};

/// A field instruction as its words; quotes group, and a doubled backslash stands for one.
QStringList SplitFieldInstruction(const QString& instruction);
/// The target of a HYPERLINK instruction; empty for other instructions.
QString HyperlinkTarget(const QString& instruction);

}  // namespace snipdeck

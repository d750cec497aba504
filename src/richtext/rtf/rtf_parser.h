#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "richtext/rich_text.h"
#include "richtext/rtf/rtf_body.h"
#include "richtext/rtf/rtf_colours.h"
#include "richtext/rtf/rtf_control_words.h"
#include "richtext/rtf/rtf_fields.h"
#include "richtext/rtf/rtf_fonts.h"
#include "richtext/rtf/rtf_formats.h"
#include "richtext/rtf/rtf_list_numbering.h"
#include "richtext/rtf/rtf_list_table.h"
#include "richtext/rtf/rtf_notes.h"
#include "richtext/rtf/rtf_page.h"
#include "richtext/rtf/rtf_picture.h"
#include "richtext/rtf/rtf_rows.h"
#include "richtext/rtf/rtf_styles.h"
#include "richtext/rtf/rtf_tokenizer.h"
#include "richtext/rtf/rtf_warnings.h"

namespace snipdeck {

/// Follows the tokens of a stream: keeps the state of the groups, decodes characters, and hands each thing to the
/// destination or handler that is for it.
class RtfParser {
 public:
  /// `bodySink` gets the running text. For a box, hidden text, headers and footers are left out.
  RtfParser(QByteArrayView rtf, RtfBody::Sink bodySink, ReadFor purpose);

  /// Where `progress`, which is told now and then how far it is, says false, it stops and what it gave is of no use.
  void Run(const std::function<bool(double part)>& progress = {});
  /// As Run, but `root` takes the place of the running text.
  void RunInto(RtfDestination& root);

  GroupState& State() { return m_state; }
  /// The state that the end of the current group brings back.
  GroupState& OuterState() { return m_stack.empty() ? m_state : m_stack.back(); }
  /// The running text, when the current group belongs to it directly; else null.
  RtfBody* Body() { return m_state.destination == m_state.body ? m_state.body : nullptr; }
  /// What receives the current group from now on, until it ends.
  void Open(std::unique_ptr<RtfDestination> destination);
  void OpenShared(RtfDestination& destination);
  void OpenBody(std::unique_ptr<RtfBody> body);
  void Skip() { m_state.destination = &m_skip; }
  /// Whether what is read is thrown away.
  bool IsSkipping() const { return m_state.destination == &m_skip; }

  /// Format of the current paragraph, which joins its list with this call. `label` is to stand before its text.
  int ParagraphFormat(const ParagraphState& paragraph, QString& label);
  QString& ShownLabel() { return m_shownLabel; }

  RtfFonts& Fonts() { return m_fonts; }
  RtfColours& Colours() { return m_colours; }
  RtfStyles& Styles() { return m_styles; }
  RtfListTable& Lists() { return m_lists; }
  RtfFormats& Formats() { return m_formats; }
  RtfRows& Rows(int level);
  /// The definition that row words describe now.
  RtfRows& CurrentRows() { return Rows(m_state.nestedRow ? std::max(2, m_state.tableLevel) : 1); }
  RtfFields& Fields() { return m_fields; }
  RtfNotes& Notes() { return m_notes; }
  /// Whether the next note in the stream is an endnote.
  bool EndnoteComesNext() const;
  RtfPage& Page() { return m_page; }
  RtfPictures& Pictures() { return m_pictures; }
  RtfWarnings& Warnings() { return m_warnings; }
  bool IsForDocument() const { return m_purpose == ReadFor::Document; }
  QString& ShapeProperty() { return m_shapeProperty; }
  void SetCodePage(int codePage) { m_codePage = codePage; }
  /// Decoded text for the current destination.
  void Emit(QStringView text);
  void EmitCharacter(int unicode);

 private:
  void Dispatch(const RtfToken& token);
  void StartGroup();
  void EndGroup();
  void CloseDestinations();
  void ReadWord(const RtfToken& token);
  void ReadKnownWord(const RtfControlWord& entry, const RtfToken& token);
  void ReadSymbol(int symbol);
  void ReadUnicode(int value);
  void ReadBytes(QByteArrayView bytes);
  void ReadSecondHalf(QByteArrayView bytes);
  void FlushBytes(bool final);
  void Decode(QByteArrayView bytes);
  int CodePage() const;
  bool SkipsFallback(const RtfToken& token);

  RtfTokenizer m_tokenizer;
  RtfSkip m_skip;
  RtfWarnings m_warnings;
  RtfFonts m_fonts;
  RtfColours m_colours;
  RtfFormats m_formats{m_fonts, m_colours};
  RtfStyles m_styles{*this};
  RtfListTable m_lists{m_fonts};
  RtfListNumbering m_numbering{m_lists, m_formats.Lists()};
  std::deque<RtfRows> m_rows;
  RtfFields m_fields{m_formats};
  RtfNotes m_notes;
  RtfPage m_page;
  RtfPictures m_pictures{m_warnings};
  GroupState m_state;
  std::vector<GroupState> m_stack;
  struct OpenDestination {
    std::size_t depth;
    RtfDestination* destination;
    std::unique_ptr<RtfDestination> owned;
    RtfDestination* destinationBefore;  ///< Gets the group back: one group may open several, one behind the other.
    RtfBody* bodyBefore;
  };
  void Push(RtfDestination& destination, RtfBody* body, std::unique_ptr<RtfDestination> owned);
  std::vector<OpenDestination> m_open;
  RtfBody m_body;
  QByteArray m_bytes;  ///< Characters that wait to be decoded together.
  int m_bytesCodePage = 0;
  QString m_shownLabel;
  int m_codePage = 1252;
  int m_fallback = 0;  ///< Characters to pass over after \u.
  std::size_t m_excessDepth = 0;
  bool m_optional = false;  ///< \* stood before the next word.
  ReadFor m_purpose;
  QString m_shapeProperty;
  bool m_done = false;
};

}  // namespace snipdeck

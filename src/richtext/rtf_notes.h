#pragma once

#include "richtext/text_flow.h"

namespace snipdeck {

/// Footnotes and endnotes, which are gathered behind the text, and the text of headers and footers.
class RtfNotes {
 public:
  /// Number of the note that begins.
  int BeginNote() { return m_current = ++m_count; }
  void AddNote(Flow&& flow) { m_notes.Append(std::move(flow)); }
  Flow& Notes() { return m_notes; }
  /// The number that a mark shows: inside a note its own, in the text that of the next one.
  int Number(bool insideNote) const { return insideNote ? m_current : m_count + 1; }

  QString& HeaderText() { return m_header; }
  QString& FooterText() { return m_footer; }

 private:
  Flow m_notes;
  QString m_header;
  QString m_footer;
  int m_count = 0;
  int m_current = 0;
};

}  // namespace snipdeck

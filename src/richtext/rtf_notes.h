#pragma once

#include "richtext/text_flow.h"

namespace snipdeck {

/// Footnotes and endnotes, which are gathered behind the text in this order, and the text of headers and footers.
class RtfNotes {
 public:
  /// A note begins; it is a footnote until BecomeEndnote.
  void BeginNote() {
    m_inEndnote = false;
    ++m_footnotes;
  }
  void BecomeEndnote() {
    if (m_inEndnote) return;
    m_inEndnote = true;
    --m_footnotes;
    ++m_endnotes;
  }
  void AddNote(Flow&& flow) { (m_inEndnote ? m_endnoteText : m_footnoteText).Append(std::move(flow)); }
  Flow TakeAll() {
    Flow all = std::move(m_footnoteText);
    all.Append(std::move(m_endnoteText));
    return all;
  }
  /// The number that a mark shows inside the note that is being read.
  int NumberInside() const { return m_inEndnote ? m_endnotes : m_footnotes; }
  /// The number that a mark in the text shows, before its note.
  int NumberOfNext(bool endnote) const { return (endnote ? m_endnotes : m_footnotes) + 1; }

  QString& HeaderText() { return m_header; }
  QString& FooterText() { return m_footer; }

 private:
  Flow m_footnoteText;
  Flow m_endnoteText;
  QString m_header;
  QString m_footer;
  int m_footnotes = 0;
  int m_endnotes = 0;
  bool m_inEndnote = false;
};

}  // namespace snipdeck

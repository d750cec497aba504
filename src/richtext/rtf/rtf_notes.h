#pragma once

#include "richtext/rtf/rtf_list_numbering.h"
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
  /// The format of endnote numbers, as FormatListNumber takes it; word processors count them i, ii, iii by themselves.
  void SetEndnoteFormat(int format) { m_endnoteFormat = format; }
  /// What a mark shows inside the note that is being read.
  QString MarkInside() const { return Mark(m_inEndnote, m_inEndnote ? m_endnotes : m_footnotes); }
  /// What a mark in the text shows, before its note.
  QString MarkOfNext(bool endnote) const { return Mark(endnote, (endnote ? m_endnotes : m_footnotes) + 1); }

  QString& HeaderText() { return m_header; }
  QString& FooterText() { return m_footer; }

 private:
  QString Mark(bool endnote, int number) const { return FormatListNumber(number, endnote ? m_endnoteFormat : 0); }

  Flow m_footnoteText;
  Flow m_endnoteText;
  QString m_header;
  QString m_footer;
  int m_footnotes = 0;
  int m_endnotes = 0;
  int m_endnoteFormat = 2;
  bool m_inEndnote = false;
};

}  // namespace snipdeck

#pragma once

#include "richtext/docx/docx_numbering.h"
#include "richtext/docx/docx_styles.h"
#include "richtext/rtf/rtf_list_numbering.h"

namespace snipdeck {

/// What holds for runs and paragraphs once defaults, styles, lists and direct formatting are put together, as numbers
/// for flows.
class DocxFormats {
 public:
  DocxFormats(const DocxStyles& styles, const DocxNumbering& lists) : m_styles(styles), m_lists(lists) {}

  /// What runs of a paragraph start from; `surroundings` is what the style of a table around it says.
  QTextCharFormat RunBase(const QTextBlockFormat& paragraph, const QTextCharFormat& surroundings) const;
  /// A run with its character style, ready for a document.
  QTextCharFormat Run(const QTextCharFormat& base, const QTextCharFormat& direct) const;
  int Character(const QTextCharFormat& finished);
  /// Counts the paragraph if it belongs to a list.
  int Paragraph(const QTextBlockFormat& direct, const QTextBlockFormat& surroundings, bool breaksPage);

  FlowFormats& Formats() { return m_formats; }

 private:
  struct Place {
    int list = 0;
    int level = 0;
    bool fromStyle = false;
  };
  Place PlaceOf(const QTextBlockFormat& direct, const DocxStyles::Style& style) const;
  QTextBlockFormat Effective(const QTextBlockFormat& direct, const QTextBlockFormat& surroundings,
                             const DocxStyles::Style& style, const Place& place) const;
  int Keep(FlowFormats::Paragraph&& paragraph);

  const DocxStyles& m_styles;
  const DocxNumbering& m_lists;
  FlowFormats m_formats;
  RtfListNumbering m_numbering{m_lists, m_formats.lists};
};

}  // namespace snipdeck

#pragma once

#include <QHash>
#include <QTextBlock>

#include "richtext/flow_text.h"

class QTextList;

namespace snipdeck {

/// Whether a document has neither tables nor frames, so that DocumentFlow can read it.
bool IsPlainFlow(const QTextDocument& document);

/// Reads a document back into a flow, which another thread can make a document of again: little work beside copying the
/// document itself, and it may be done in parts. Meanwhile text may be added behind what is read.
class DocumentFlow {
 public:
  /// `document` has neither tables nor frames, and outlives this.
  explicit DocumentFlow(const QTextDocument& document);

  /// Reads on for some milliseconds; false once all has been read.
  bool ReadPart();
  /// What was read, with the document's pictures and its page.
  FlowText Take();

 private:
  void Read(const QTextBlock& block, Flow& piece);
  template <typename Formatted>
  int CharacterFormat(const Formatted& text);
  int ParagraphFormat(const QTextBlock& block);
  int ListOf(const QTextBlock& block);

  const QTextDocument& m_document;
  const int m_last;  ///< Number of the last block.
  QTextBlock m_next;
  FlowText m_text;
  // Places in the formats of `m_text`.
  QHash<int, int> m_characters;
  QHash<int, int> m_paragraphs;
  QHash<QTextList*, int> m_lists;
};

}  // namespace snipdeck

#pragma once

#include <QTextCursor>

#include "platform/qt/printing/page_printing.h"
#include "richtext/document_flow.h"

namespace snipdeck {

/// A copy of a long text in pages that is made bit by bit, while the windows go on answering. The text must neither change
/// nor go away meanwhile.
class GradualCopy {
 public:
  explicit GradualCopy(const QTextDocument& document);

  /// Some milliseconds of work; false once the copy has all its pages. A text with tables is copied in one of these turns.
  bool GoOn();
  const PagedCopy& Pages() const { return *m_copy; }

 private:
  bool AddPiece();
  bool IsPlaced() const;

  const QTextDocument& m_document;
  DocumentFlow m_flow;
  FlowText m_text;
  std::size_t m_nextPiece = 0;
  BegunLists m_lists;
  std::unique_ptr<PagedCopy> m_copy;
};

}  // namespace snipdeck

#include "platform/qt/page_view/gradual_copy.h"

#include <QTextBlock>
#include <QTextLayout>

namespace snipdeck {

GradualCopy::GradualCopy(const QTextDocument& document) : m_document(document), m_flow(document) {}

bool GradualCopy::GoOn() {
  if (m_copy) return AddPiece() || !IsPlaced();
  if (!IsPlainFlow(m_document)) {
    m_copy = std::make_unique<PagedCopy>(m_document);
  } else if (!m_flow.ReadPart()) {
    m_text = m_flow.Take();
    CutPieces(m_text);
    m_copy = PagedCopy::EmptyLike(m_document);
  }
  return true;
}

bool GradualCopy::AddPiece() {
  if (m_nextPiece >= m_text.pieces.size()) return false;
  QTextCursor cursor = m_copy->End();
  InsertFlowPiece(m_text, m_nextPiece++, cursor, m_lists);
  return true;
}

bool GradualCopy::IsPlaced() const {
  return m_copy->Document().lastBlock().layout()->lineCount() > 0;
}

}  // namespace snipdeck

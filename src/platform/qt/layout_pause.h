#pragma once

#include <QTextEdit>

namespace snipdeck {

/// While it lives, the text of a control is not placed into lines; afterwards it is placed from its start on, bit by
/// bit between the user's events. Without it a long text would be placed to its end at once, and the window would stand
/// still.
class LayoutPause {
 public:
  /// Does nothing unless `wanted`, or while the text is not placed anyway.
  LayoutPause(QTextEdit& control, bool wanted) : m_document(wanted ? control.document() : nullptr) {
    if (!m_document) return;
    m_pageSize = m_document->pageSize();
    m_document->setPageSize(QSizeF(0, 0));
  }
  ~LayoutPause() {
    if (m_document && !m_pageSize.isNull()) m_document->setPageSize(m_pageSize);
  }
  Q_DISABLE_COPY_MOVE(LayoutPause)

 private:
  QTextDocument* m_document;
  QSizeF m_pageSize;
};

}  // namespace snipdeck

#pragma once

#include <memory>

#include <QTextCursor>
#include <QTextDocument>

#include "platform/qt/page_view/paged_text.h"

namespace snipdeck {

/// A copy of a text in pages, without formatting marks: for a control that shows the text in another way.
class PagedCopy {
 public:
  explicit PagedCopy(const QTextDocument& document);
  /// Without its text: pages of the same size, with the same defaults.
  static std::unique_ptr<PagedCopy> EmptyLike(const QTextDocument& document);

  const PagedText& Text() const { return m_text; }
  const QTextDocument& Document() const { return *m_copy; }
  QTextCursor End();

 private:
  explicit PagedCopy(std::unique_ptr<QTextDocument> copy);

  std::unique_ptr<QTextDocument> m_copy;
  PagedText m_text;
};

/// Draws a page, from 1, on a sheet whose unit is a twip; nothing for a number out of range.
void PaintPrinted(QPainter& painter, const PagedText& text, int page);

}  // namespace snipdeck

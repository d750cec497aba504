#include "platform/qt/printing/page_printing.h"

#include <QPainter>
#include <QTextDocument>

#include "platform/units.h"
#include "richtext/document_copier.h"
#include "richtext/document_page.h"
#include "richtext/safe_document.h"

namespace snipdeck {
namespace {

// Formatting marks stay behind: they belong to how a control shows its text.
std::unique_ptr<QTextDocument> WithoutText(const QTextDocument& document) {
  auto copy = std::make_unique<SafeDocument>();
  copy->setDocumentMargin(document.documentMargin());
  copy->setDefaultFont(document.defaultFont());
  QTextOption option = document.defaultTextOption();
  option.setFlags(option.flags() & ~(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators));
  copy->setDefaultTextOption(option);
  SetPageOf(*copy, PageOf(document));
  return copy;
}

std::unique_ptr<QTextDocument> WithoutMarks(const QTextDocument& document) {
  std::unique_ptr<QTextDocument> copy = WithoutText(document);
  QTextCursor cursor(copy.get());
  CopyText(document, 0, EndOf(document), cursor);
  return copy;
}

}  // namespace

PagedCopy::PagedCopy(const QTextDocument& document) : PagedCopy(WithoutMarks(document)) {}

PagedCopy::PagedCopy(std::unique_ptr<QTextDocument> copy) : m_copy(std::move(copy)), m_text(*m_copy) {}

std::unique_ptr<PagedCopy> PagedCopy::EmptyLike(const QTextDocument& document) {
  return std::unique_ptr<PagedCopy>(new PagedCopy(WithoutText(document)));
}

QTextCursor PagedCopy::End() {
  QTextCursor cursor(m_copy.get());
  cursor.movePosition(QTextCursor::End);
  return cursor;
}

void PaintPrinted(QPainter& painter, const PagedText& text, int page) {
  if (page < 1 || page > text.CountPages()) return;
  painter.save();
  painter.scale(kTwipsPerPixel, kTwipsPerPixel);
  painter.setClipRect(QRectF(QPointF(), text.SheetSize()), Qt::IntersectClip);
  text.Print(painter, page - 1);
  painter.restore();
}

}  // namespace snipdeck

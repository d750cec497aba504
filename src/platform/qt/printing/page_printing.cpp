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
std::unique_ptr<QTextDocument> WithoutMarks(const QTextDocument& document) {
  auto copy = std::make_unique<SafeDocument>();
  copy->setDocumentMargin(document.documentMargin());
  copy->setDefaultFont(document.defaultFont());
  QTextOption option = document.defaultTextOption();
  option.setFlags(option.flags() & ~(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators));
  copy->setDefaultTextOption(option);
  SetPageOf(*copy, PageOf(document));
  QTextCursor cursor(copy.get());
  CopyText(document, 0, EndOf(document), cursor);
  return copy;
}

}  // namespace

PagedCopy::PagedCopy(const QTextDocument& document) : m_copy(WithoutMarks(document)), m_text(*m_copy) {}

void PaintPrinted(QPainter& painter, const PagedText& text, int page) {
  if (page < 1 || page > text.CountPages()) return;
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  painter.save();
  painter.scale(kTwipsPerPixel, kTwipsPerPixel);
  painter.setClipRect(QRectF(QPointF(), text.SheetSize()), Qt::IntersectClip);
  text.Paint(painter, page - 1, context);
  painter.restore();
}

}  // namespace snipdeck

#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include "platform/print_dialog.h"
#include "platform/qt/dialogs/page_setup_dialog.h"
#include "platform/qt/layout/long_text_view.h"
#include "platform/qt/page_view/page_view.h"
#include "platform/qt/printing/page_printing.h"
#include "platform/qt/rich_text_control.h"
#include "platform/qt/zoomed_device.h"
#include "platform/units.h"
#include "richtext/document_page.h"

// The control's pages: page view, the document's page, printing.

namespace snipdeck {
namespace {

constexpr int kPageViewMode = 2;
constexpr int PageGeometry::*kMargins[] = {&PageGeometry::left, &PageGeometry::top, &PageGeometry::right,
                                           &PageGeometry::bottom};

bool IsSide(int side) {
  return side >= 0 && side < static_cast<int>(std::size(kMargins));
}

}  // namespace

void RichTextControl::SetViewMode(int mode) {
  const bool showsPages = m_pageView != nullptr;
  m_viewMode = mode;
  if ((mode == kPageViewMode) == showsPages) return;
  showsPages ? ShowLines() : ShowPages();
  emit ViewChanged();
}

void RichTextControl::ShowPages() {
  const bool fromStart = verticalScrollBar()->value() == 0;
  const QTextCursor top = cursorForPosition(QPoint(0, 0));
  const PageView::Anchor anchor{top.position(), cursorRect(top).top() * 100.0 / m_zoomValue};
  const bool caretIsSeen = viewport()->rect().intersects(cursorRect());
  const LineScroll before = m_lineScroll;
  const bool isUntouched =
      before.inPages > 0 && before == LineScroll{verticalScrollBar()->value(), before.inPages, document()->revision(),
                                                 m_zoomValue};
  m_lineScroll = {verticalScrollBar()->value(), -1, document()->revision(), m_zoomValue};
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_longText->AllowLong(false);
  m_pageView = std::make_unique<PageView>(*this);
  if (!fromStart) m_pageView->ScrollTo(anchor);
  if (caretIsSeen) m_pageView->ScrollToCaret();
  if (isUntouched) m_pageView->verticalScrollBar()->setValue(before.inPages);
  m_lineScroll.inPages = m_pageView->verticalScrollBar()->value();
  connect(m_pageView.get(), &PageView::Moved, this, &RichTextControl::ViewChanged);
}

// Where nothing happened in one view, the other one goes back to where it was to the pixel.
void RichTextControl::ShowLines() {
  const LineScroll now{m_lineScroll.value, m_pageView->verticalScrollBar()->value(), document()->revision(),
                       m_zoomValue};
  const bool isUntouched = now == m_lineScroll;
  const bool atStart = now.inPages == 0;
  const PageView::Anchor anchor = m_pageView->TopAnchor();
  m_pageView.reset();
  document()->documentLayout()->setPaintDevice(m_zoomedDevice.get());
  m_longText->AllowLong(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  const int linesBefore = m_lineScroll.value;
  const auto restore = [=, this] {
    if (m_pageView) return;
    PlaceLines();
    ScrollLineTo(anchor.position, anchor.offset * m_zoomValue / 100.0);
    if (isUntouched || atStart) verticalScrollBar()->setValue(isUntouched ? linesBefore : 0);
    m_lineScroll = {verticalScrollBar()->value(), now.inPages, document()->revision(), m_zoomValue};
  };
  restore();
  // Again once the control has the place that its host gives it for this view.
  QTimer::singleShot(0, this, restore);
}

void RichTextControl::ScrollLineTo(int position, double offset) {
  QTextCursor line(document());
  line.setPosition(std::min(position, document()->characterCount() - 1));
  const int top = cursorRect(line).top();  // which places the text so far
  PlaceLines();
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(top - offset));
}

void RichTextControl::PlaceLines() {
  if (document()->pageSize().isNull()) document()->setTextWidth(viewport()->width());
  QResizeEvent resized(viewport()->size(), viewport()->size());
  QTextEdit::resizeEvent(&resized);
  if (m_placedFor) PlaceAnew();
}

PageGeometry RichTextControl::Page() const {
  return PageOf(*QTextEdit::document());
}

void RichTextControl::SetPage(const PageGeometry& page) {
  SetPageOf(*QTextEdit::document(), page);
}

void RichTextControl::SetPageWidth(int twips) {
  PageGeometry page = Page();
  page.width = twips;
  SetPage(page);
}

void RichTextControl::SetPageHeight(int twips) {
  PageGeometry page = Page();
  page.height = twips;
  SetPage(page);
}

int RichTextControl::PageMargins(int side) const {
  return IsSide(side) ? Page().*kMargins[side] : 0;
}

void RichTextControl::SetPageMargins(int side, int twips) {
  if (!IsSide(side)) return;
  PageGeometry page = Page();
  page.*kMargins[side] = twips;
  SetPage(page);
}

RichTextControl::LayoutScale RichTextControl::ScaleOfLayout() const {
  const double zoom = m_zoomValue / 100.0;
  if (m_pageView) return {m_pageView->XOfDot(0), zoom, 1, m_pageView->Text().DotsOf(0).height()};
  return {static_cast<double>(viewport()->x() - horizontalScrollBar()->value()), 1, zoom, 0};
}

int RichTextControl::PageCount() const {
  return m_pageView ? m_pageView->Text().CountPages() : PagedCopy(*document()).Text().CountPages();
}

void RichTextControl::SetPrintDevice(PrintJob* job) {
  m_printDevice = job;
  if (!job) m_printCopy.reset();
}

void RichTextControl::PrintPage(int page) {
  if (!m_printDevice) return;
  if (m_pageView && !ShowFormatting()) return PaintPrinted(m_printDevice->Painter(), m_pageView->Text(), page);
  if (!m_printCopy || m_printRevision != document()->revision()) m_printCopy = std::make_unique<PagedCopy>(*document());
  m_printRevision = document()->revision();
  PaintPrinted(m_printDevice->Painter(), m_printCopy->Text(), page);
}

void RichTextControl::PageSetupDialog(int) {
  if (!isReadOnly()) RunPageSetupDialog(*this);
}

QVariant RichTextControl::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (m_pageView && query == Qt::ImCursorRectangle) return m_pageView->CaretRect();
  return QTextEdit::inputMethodQuery(query);
}

}  // namespace snipdeck

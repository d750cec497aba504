#include "platform/qt/page_view/paged_text.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>

#include "platform/qt/page_view/page_layout.h"
#include "platform/units.h"
#include "richtext/document_page.h"
#include "richtext/page_drawing.h"
#include "richtext/paragraph_marks.h"

namespace snipdeck {
namespace {

constexpr double kFarBelow = 1e6;  // more than any paragraph has

// Shapes and widths as the font's makers drew them, not fitted to the pixels of a screen.
QFont Unhinted(QFont font) {
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

// A new layout is no change of the text, and must not be told as one.
void GiveLayout(QTextDocument& document, QAbstractTextDocumentLayout* layout) {
  const QVariant caretWidth = document.documentLayout()->property("cursorWidth");
  {
    const QSignalBlocker quiet(&document);
    document.setDocumentLayout(layout);
    document.documentLayout()->setProperty("cursorWidth", caretWidth);
  }
  emit document.documentLayoutChanged();
}

}  // namespace

PagedText::PagedText(QTextDocument& document)
    : m_document(document), m_font(document.defaultFont()), m_hadDesignMetrics(document.useDesignMetrics()) {
  FollowLayout();
  LayOut();
  connect(&document, &QTextDocument::documentLayoutChanged, this, &PagedText::FollowLayout);
  // The first of these signals comes before the document is laid out for a change, the second one after.
  connect(&document, &QTextDocument::contentsChange, this, &PagedText::LoosenPageEnds);
  connect(&document, &QTextDocument::contentsChanged, this, &PagedText::TightenPageEnds);
}

PagedText::~PagedText() {
  m_document.setPageSize(QSizeF(0, 0));
  if (m_isOurs) GiveLayout(m_document, nullptr);
  m_document.setDefaultFont(m_font);
  m_document.setUseDesignMetrics(m_hadDesignMetrics);
  m_document.documentLayout()->setPaintDevice(nullptr);
}

void PagedText::FollowLayout() {
  connect(m_document.documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
          [this](const QSizeF& size) {
            m_pages = PageOfDot(size.height() - 1) + 1;
            if (!m_isOurs) m_finding.start(0, this);
          });
}

bool PagedText::HasTables() const {
  return !m_document.rootFrame()->childFrames().isEmpty();
}

void PagedText::ChooseLayout() {
  if (m_isOurs != HasTables()) return;
  m_isOurs = !m_isOurs;
  m_pageEnds.clear();
  m_loosened.clear();
  GiveLayout(m_document, m_isOurs ? new PageLayout(&m_document) : nullptr);
}

// Without a page size nothing is laid out, so that it is done once and not after each of the other settings.
void PagedText::LayOut() {
  m_document.setPageSize(QSizeF(0, 0));
  ChooseLayout();
  m_document.documentLayout()->setPaintDevice(&m_paper);
  m_document.setDefaultFont(Unhinted(m_font));
  m_document.setUseDesignMetrics(true);
  m_geometry = PageOf(m_document);
  m_margin = m_document.documentMargin();
  m_sheet = QSizeF(m_geometry.width, m_geometry.height) / kTwipsPerPixel;
  m_text = QPointF(m_geometry.left, m_geometry.top) / kTwipsPerPixel - QPointF(m_margin, m_margin);
  const QSizeF text(m_geometry.width - m_geometry.left - m_geometry.right,
                    m_geometry.height - m_geometry.top - m_geometry.bottom);
  // Whole pixels, since the document rounds the height of a page, which would add up over many pages.
  m_strip = QSizeF(text.width() / kTwipsPerPixel, std::floor(text.height() / kTwipsPerPixel)) +
            QSizeF(2 * m_margin, 2 * m_margin);
  m_document.setPageSize(m_strip);
}

bool PagedText::IsOutdated() const {
  return PageOf(m_document) != m_geometry || m_isOurs == HasTables();
}

void PagedText::FindPageEnds() {
  m_finding.stop();
  m_pageEnds.clear();
  if (m_isOurs) return;
  for (int page = 0; page + 1 < m_pages; ++page) {
    const QPointF end(0, DotsOf(page).bottom() - m_margin - 1);
    const QTextBlock block = m_document.findBlock(m_document.documentLayout()->hitTest(end, Qt::FuzzyHit));
    if (CrossesPages(block)) m_pageEnds.append(block.position());
  }
}

void PagedText::timerEvent(QTimerEvent*) {
  FindPageEnds();
}

// Qt lays a paragraph out anew when it comes to cross the end of a page, but not when it ceases to: it would keep the gap in
// its middle. A paragraph that seems to reach to the end of the text comes to cross it in any case.
void PagedText::LoosenPageEnds(int position, int removed, int added) {
  for (const int begin : std::as_const(m_pageEnds)) {
    if (begin <= position + removed) continue;
    const QTextBlock block = m_document.findBlock(begin - removed + added);
    if (!block.isValid() || block.layout()->lineCount() == 0) continue;
    QTextLine last = block.layout()->lineAt(block.layout()->lineCount() - 1);
    if (last.y() < kFarBelow) last.setPosition(last.position() + QPointF(0, kFarBelow));
    m_loosened.append(block.position());
  }
  m_pageEnds.clear();
}

// What Qt did not come to needed no change.
void PagedText::TightenPageEnds() {
  for (const int begin : std::as_const(m_loosened)) {
    const QTextBlock block = m_document.findBlock(begin);
    m_document.documentLayout()->blockBoundingRect(block);  // places the text so far
    if (block.layout()->lineCount() == 0) continue;
    QTextLine last = block.layout()->lineAt(block.layout()->lineCount() - 1);
    if (last.y() >= kFarBelow) last.setPosition(last.position() - QPointF(0, kFarBelow));
  }
  m_loosened.clear();
  FindPageEnds();
}

bool PagedText::CrossesPages(const QTextBlock& block) const {
  const int lines = block.layout()->lineCount();
  if (lines < 2) return false;
  const double top = m_document.documentLayout()->blockBoundingRect(block).top();
  return PageOfDot(top) != PageOfDot(top + block.layout()->lineAt(lines - 1).y());
}

void PagedText::PlaceAll() {
  m_pages = CountPages();
  FindPageEnds();
}

int PagedText::CountPages() const {
  return std::max(1, m_document.pageCount());
}

int PagedText::PageOfDot(double y) const {
  return std::max(0, static_cast<int>(std::floor(y / m_strip.height())));
}

QRectF PagedText::DotsOf(int page) const {
  return QRectF(QPointF(0, page * m_strip.height()), m_strip);
}

QPointF PagedText::OnSheet(int page, const QPointF& dot) const {
  return dot - DotsOf(page).topLeft() + m_text;
}

QRectF PagedText::OnSheet(int page, const QRectF& dots) const {
  return QRectF(OnSheet(page, dots.topLeft()), dots.size());
}

QPointF PagedText::FromSheet(int page, const QPointF& point) const {
  const QPointF dot = point - m_text;
  const QRectF dots = DotsOf(page);
  return {std::clamp(dot.x(), 0.0, dots.width() - 1),
          dots.top() + std::clamp(dot.y(), m_margin, dots.height() - m_margin - 1)};
}

QRectF PagedText::CaretDots(int position) const {
  const QTextBlock block = m_document.findBlock(position);
  const QRectF place = m_document.documentLayout()->blockBoundingRect(block);
  const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
  if (!line.isValid()) return QRectF(place.topLeft(), QSizeF(0, place.height()));
  const double x = line.cursorToX(position - block.position());
  return QRectF(place.left() + x, place.top() + line.y(), 0, line.height());
}

// What hangs out of its line at the sides is shown; above and below begins the next page.
void PagedText::OnStrip(QPainter& painter, int page, const std::function<void()>& draw) const {
  const QRectF dots = DotsOf(page);
  painter.save();
  painter.translate(m_text - dots.topLeft());
  painter.setClipRect(dots.adjusted(-m_text.x(), 0, m_text.x(), 0), Qt::IntersectClip);
  draw();
  painter.restore();
}

void PagedText::Paint(QPainter& painter, int page, PaintContext context) const {
  context.clip = DotsOf(page);
  OnStrip(painter, page, [&] {
    m_document.documentLayout()->draw(&painter, context);
    if (!m_isOurs) PaintMarks(painter, m_document, context.clip, context.palette);
  });
}

void PagedText::Print(QPainter& painter, int page) const {
  PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  context.clip = DotsOf(page);
  OnStrip(painter, page, [&] { DrawPage(m_document, painter, context, !m_isOurs); });
}

}  // namespace snipdeck

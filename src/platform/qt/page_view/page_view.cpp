#include "platform/qt/page_view/page_view.h"

#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTimerEvent>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {
namespace {

constexpr double kGap = 12;         // pixels between sheets and around them
constexpr double kCaretRoom = 8;    // pixels that are shown above and below the caret
constexpr int kPlacedAtOnce = 1'000'000;  // characters; longer texts get their last pages while the first can be read
const QColor kDesk(0x9a, 0xa0, 0xa8);
const QColor kSheetEdge(0x60, 0x66, 0x6e);

}  // namespace

PageView::PageView(RichTextControl& control)
    : QAbstractScrollArea(&control), m_control(control), m_text(*control.document()), m_zoom(Zoom()) {
  setAccessibleName(tr("Pages"));
  setObjectName(QStringLiteral("pageView"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setAcceptDrops(true);
  viewport()->setCursor(Qt::IBeamCursor);
  verticalScrollBar()->setSingleStep(20);
  horizontalScrollBar()->setSingleStep(20);
  control.installEventFilter(this);
  FollowDocument();
  setGeometry(control.contentsRect());
  if (control.document()->characterCount() <= kPlacedAtOnce) m_text.PlaceAll();
  FitScrollBars();
  ShowCaret();
  show();
}

void PageView::FollowLayout() {
  const QAbstractTextDocumentLayout* const layout = m_control.document()->documentLayout();
  connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &PageView::FitScrollBars);
  connect(layout, &QAbstractTextDocumentLayout::update, viewport(), qOverload<>(&QWidget::update));
}

void PageView::FollowDocument() {
  FollowLayout();
  connect(m_control.document(), &QTextDocument::documentLayoutChanged, this, &PageView::FollowLayout);
  connect(&m_control, &QTextEdit::textChanged, this, &PageView::TextHasChanged);
  connect(&m_control, &QTextEdit::selectionChanged, viewport(), qOverload<>(&QWidget::update));
  connect(&m_control, &QTextEdit::cursorPositionChanged, this, [this] {
    ShowCaret();
    ScrollToCaret();
  });
}

double PageView::Zoom() const {
  return m_control.ZoomValue() / 100.0;
}

QRectF PageView::SheetRect(int page) const {
  const QSizeF size = m_text.SheetSize() * m_zoom;
  const double left = std::max(kGap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
  const double top = kGap + page * (size.height() + kGap) - verticalScrollBar()->value();
  return QRectF(QPointF(std::round(left), std::round(top)), size);
}

// The gap below a sheet belongs to it.
int PageView::PageAt(double y) const {
  const double step = m_text.SheetSize().height() * m_zoom + kGap;
  return std::clamp(static_cast<int>(std::floor((y + verticalScrollBar()->value() - kGap) / step)), 0, m_text.PlacedPages() - 1);
}

QPointF PageView::DotAt(const QPointF& viewPoint) const {
  const int page = PageAt(viewPoint.y());
  return m_text.FromSheet(page, (viewPoint - SheetRect(page).topLeft()) / m_zoom);
}

int PageView::PositionAt(const QPointF& viewPoint) const {
  return m_control.document()->documentLayout()->hitTest(DotAt(viewPoint), Qt::FuzzyHit);
}

QRectF PageView::InView(const QRectF& dots) const {
  const int page = m_text.PageOfDot(dots.top());
  const QRectF onSheet = m_text.OnSheet(page, dots);
  return QRectF(SheetRect(page).topLeft() + onSheet.topLeft() * m_zoom, onSheet.size() * m_zoom);
}

double PageView::XOfDot(double dot) const {
  return viewport()->mapTo(&m_control, QPoint()).x() + InView(QRectF(dot, 0, 0, 0)).left();
}

// While an input method composes a word, the caret stands in that word.
int PageView::CaretPosition() const {
  return m_control.textCursor().position() + m_preeditCaret;
}

QRectF PageView::CaretAt(int position) const {
  const int width = std::max(1, style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this));
  QRectF rect = InView(m_text.CaretDots(position));
  rect.setWidth(width);
  return rect;
}

QRectF PageView::CaretRect() const {
  return CaretAt(CaretPosition()).translated(viewport()->mapTo(&m_control, QPoint()));
}

void PageView::FitScrollBars() {
  const QSizeF sheet = m_text.SheetSize() * m_zoom;
  const auto fit = [](QScrollBar& bar, double contents, int shown) {
    bar.setRange(0, std::max(0, static_cast<int>(std::ceil(contents)) - shown));
    bar.setPageStep(shown);
  };
  fit(*horizontalScrollBar(), sheet.width() + 2 * kGap, viewport()->width());
  fit(*verticalScrollBar(), kGap + m_text.PlacedPages() * (sheet.height() + kGap), viewport()->height());
  viewport()->update();
  emit Moved();
}

void PageView::Refit() {
  const Anchor anchor = TopAnchor();
  const bool atStart = verticalScrollBar()->value() == 0;
  m_zoom = Zoom();
  FitScrollBars();
  if (!atStart) ScrollTo(anchor);
}

PageView::Anchor PageView::TopAnchor() const {
  const int position = PositionAt(QPointF(SheetRect(0).left(), 0));
  return {position, CaretAt(position).top() / m_zoom};
}

void PageView::ScrollTo(const Anchor& anchor) {
  const double top = CaretAt(anchor.position).top();
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(top - anchor.offset * m_zoom));
}

void PageView::ScrollToCaret() {
  QRectF caret = CaretAt(CaretPosition()).adjusted(0, -kCaretRoom, 0, kCaretRoom);
  const bool inFirstLine = m_text.CaretDots(CaretPosition()).top() <= m_text.CaretDots(0).top();
  const double sheetTop = SheetRect(0).top() - kGap;
  if (inFirstLine && caret.bottom() - sheetTop <= viewport()->height()) caret.setTop(sheetTop);
  const auto follow = [](QScrollBar& bar, double first, double last, double shown) {
    if (last > shown) bar.setValue(bar.value() + qCeil(std::min(last - shown, first)));
    else if (first < 0) bar.setValue(bar.value() + qFloor(first));
  };
  follow(*verticalScrollBar(), caret.top(), caret.bottom(), viewport()->height());
  follow(*horizontalScrollBar(), caret.left() - kGap, caret.right() + kGap, viewport()->width());
}

bool PageView::TurnPage(const QKeyEvent& key) {
  const auto tell = [&](QKeySequence::StandardKey standard, int direction, QTextCursor::MoveMode mode) {
    const bool matches = key.matches(standard);
    if (matches) MoveByView(direction, mode);
    return matches;
  };
  return tell(QKeySequence::MoveToNextPage, 1, QTextCursor::MoveAnchor) ||
         tell(QKeySequence::MoveToPreviousPage, -1, QTextCursor::MoveAnchor) ||
         tell(QKeySequence::SelectNextPage, 1, QTextCursor::KeepAnchor) ||
         tell(QKeySequence::SelectPreviousPage, -1, QTextCursor::KeepAnchor);
}

void PageView::MoveByView(int direction, QTextCursor::MoveMode mode) {
  const QRectF caret = CaretAt(CaretPosition());
  const double way = direction * std::max(viewport()->height() - caret.height(), caret.height());
  const int before = verticalScrollBar()->value();
  const int position = PositionAt(caret.center() + QPointF(0, way));
  verticalScrollBar()->setValue(before + qRound(way));
  QTextCursor cursor = m_control.textCursor();
  cursor.setPosition(position, mode);
  m_control.setTextCursor(cursor);
}

void PageView::TextHasChanged() {
  ShowCaret();
  if (!m_text.IsOutdated()) return;
  m_text.LayOut();
  FitScrollBars();
}

void PageView::ShowCaret() {
  m_caretIsOn = true;
  const int flashTime = QApplication::cursorFlashTime();
  if (m_control.hasFocus() && flashTime > 1) m_blinking.start(flashTime / 2, this);
  else m_blinking.stop();
  viewport()->update();
}

QAbstractTextDocumentLayout::PaintContext PageView::Context() const {
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette = m_control.palette();
  const auto group = m_control.hasFocus() ? QPalette::Active : QPalette::Inactive;
  for (const QTextEdit::ExtraSelection& extra : m_control.extraSelections())
    context.selections.append({extra.cursor, extra.format});
  if (m_control.textCursor().hasSelection()) {
    QTextCharFormat format;
    format.setBackground(context.palette.brush(group, QPalette::Highlight));
    format.setForeground(context.palette.brush(group, QPalette::HighlightedText));
    context.selections.append({m_control.textCursor(), format});
  }
  return context;
}

void PageView::PaintSheet(QPainter& painter, int page) const {
  const QRectF sheet = SheetRect(page);
  painter.fillRect(sheet.translated(2, 2), QColor(0, 0, 0, 60));
  painter.fillRect(sheet, m_control.viewport()->palette().color(QPalette::Base));
  painter.setPen(kSheetEdge);
  painter.drawRect(sheet.adjusted(-0.5, -0.5, 0.5, 0.5));
  painter.save();
  painter.setClipRect(sheet);
  painter.translate(sheet.topLeft());
  painter.scale(m_zoom, m_zoom);
  m_text.Paint(painter, page, Context());
  painter.restore();
}

void PageView::PaintCaret(QPainter& painter) const {
  const QColor ink = m_control.palette().color(QPalette::Text);
  if (m_dropPosition >= 0) painter.fillRect(CaretAt(m_dropPosition), ink);
  if (m_caretIsOn && m_control.hasFocus() && !m_control.isReadOnly()) painter.fillRect(CaretAt(CaretPosition()), ink);
}

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), kDesk);
  const int last = PageAt(event->rect().bottom());
  for (int page = PageAt(event->rect().top()); page <= last; ++page) PaintSheet(painter, page);
  PaintCaret(painter);
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  FitScrollBars();
}

void PageView::scrollContentsBy(int, int) {
  viewport()->update();
  emit Moved();
}

void PageView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == m_dragging.timerId()) return ScrollBesides();
  if (event->timerId() != m_blinking.timerId()) return QAbstractScrollArea::timerEvent(event);
  m_caretIsOn = !m_caretIsOn;
  viewport()->update(CaretAt(CaretPosition()).toAlignedRect());
}

}  // namespace snipdeck

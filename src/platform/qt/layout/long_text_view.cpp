#include "platform/qt/layout/long_text_view.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextFrame>
#include <QTimerEvent>

#include "platform/qt/layout/paragraph_layout.h"

namespace snipdeck {

namespace {

constexpr int kLongText = 100'000;  // characters; Qt takes about 20 ms to place them
// Characters below which a text that was long is an ordinary one again: less, so that the layout does not change with
// every edit.
constexpr int kOrdinaryText = 50'000;
constexpr int kSlice = 5;           // milliseconds of guessing between the user's events
constexpr int kReviewDelay = 200;   // milliseconds

bool HasFrames(const QTextDocument& document) {
  return !document.rootFrame()->childFrames().isEmpty();
}

}  // namespace

LongTextView::LongTextView(QTextEdit& control, QPaintDevice& device) : m_control(control), m_device(device) {
  control.viewport()->installEventFilter(this);
  connect(control.document(), &QTextDocument::contentsChange, this, [this] {
    if (!m_reviewing.isActive()) m_reviewing.start(kReviewDelay, this);
  });
}

bool LongTextView::IsLong() const {
  return m_layout;
}

bool LongTextView::WantsLong(qsizetype characters, bool hasFrames) const {
  const QTextDocument& document = *m_control.document();
  const int limit = IsLong() ? kOrdinaryText : kLongText;
  return m_mayBeLong && !hasFrames && document.characterCount() + characters > limit && !HasFrames(document);
}

void LongTextView::Expect(qsizetype characters, bool hasFrames) {
  const bool wantsLong = WantsLong(characters, hasFrames);
  if (wantsLong != IsLong()) SetLong(wantsLong);
}

void LongTextView::AllowLong(bool allow) {
  m_mayBeLong = allow;
  Expect(0, false);
}

void LongTextView::Review() {
  if (WantsLong(0, false) == IsLong()) return;
  const Anchor anchor = FindAnchor();
  SetLong(!IsLong());
  Show(anchor);
}

// A new layout is no change of the text, and must not be told as one.
void LongTextView::SetLong(bool isLong) {
  QTextDocument& document = *m_control.document();
  const int caretWidth = m_control.cursorWidth();
  {
    const QSignalBlocker quiet(&document);
    m_layout = isLong ? new ParagraphLayout(&document) : nullptr;
    document.setDocumentLayout(m_layout);
    document.documentLayout()->setPaintDevice(&m_device);
  }
  emit document.documentLayoutChanged();
  m_control.setCursorWidth(caretWidth);
  m_guessing.stop();
  if (!m_layout) return;
  connect(m_layout, &ParagraphLayout::WorkCame, this, [this] { m_guessing.start(0, this); });
  document.markContentsDirty(0, document.characterCount());
}

void LongTextView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == m_reviewing.timerId()) {
    m_reviewing.stop();
    Review();
  } else if (!m_layout || !m_layout->HasWork()) {
    m_guessing.stop();
  } else {
    KeepingView([this] {
      m_layout->GuessFor(kSlice);
      m_layout->TellSize();
    });
  }
}

void LongTextView::KeepingView(const std::function<void()>& change) {
  if (!IsLong()) return change();
  const Anchor anchor = FindAnchor();
  change();
  Show(anchor);
}

// A paragraph that the user has seen where it is: its lines are placed. Where the view came to an unknown part of the
// text, the end of the text or else whatever is at the top.
LongTextView::Anchor LongTextView::FindAnchor() const {
  const int top = m_control.verticalScrollBar()->value();
  const auto at = [&](const QTextBlock& block, int y) { return Anchor{block, y - top}; };
  if (!m_layout) {
    const QTextBlock block = m_control.cursorForPosition(QPoint(0, 0)).block();
    const double y = m_control.document()->documentLayout()->blockBoundingRect(block).top();
    return at(block, static_cast<int>(y));
  }
  const int bottom = top + m_control.viewport()->height();
  // The caret stays where it is seen, whatever becomes of the paragraphs above it.
  const QTextBlock caret = m_control.textCursor().block();
  const int caretTop = m_layout->TopOf(caret);
  if (m_layout->IsPlaced(caret) && caretTop < bottom && caretTop + m_layout->HeightOf(caret) > top)
    return at(caret, caretTop);
  const QTextBlock first = m_layout->BlockAt(top);
  for (QTextBlock block = first; block.isValid() && m_layout->TopOf(block) < bottom; block = block.next()) {
    if (m_layout->IsPlaced(block)) return at(block, m_layout->TopOf(block));
  }
  const QScrollBar& bar = *m_control.verticalScrollBar();
  const QTextBlock block = top > 0 && top == bar.maximum() ? m_control.document()->lastBlock() : first;
  return at(block, m_layout->TopOf(block));
}

void LongTextView::Show(const Anchor& anchor) {
  const QAbstractTextDocumentLayout& layout = *m_control.document()->documentLayout();
  const int top = m_layout ? m_layout->TopOf(anchor.block)
                           : static_cast<int>(layout.blockBoundingRect(anchor.block).top());
  if (m_layout) m_layout->TellSize();  // so that the scroll bar reaches that far
  m_control.verticalScrollBar()->setValue(top - anchor.below);
}

// From the anchor on upwards and downwards, until the view is full.
void LongTextView::PlaceAround(const Anchor& anchor) {
  m_layout->Place(anchor.block, false);
  const int height = m_control.viewport()->height();
  int y = anchor.below + m_layout->HeightOf(anchor.block);
  for (QTextBlock block = anchor.block.next(); block.isValid() && y < height; block = block.next()) {
    m_layout->Place(block, false);
    y += m_layout->HeightOf(block);
  }
  y = anchor.below;
  for (QTextBlock block = anchor.block.previous(); block.isValid() && y > 0; block = block.previous()) {
    m_layout->Place(block, false);
    y -= m_layout->HeightOf(block);
  }
}

bool LongTextView::eventFilter(QObject* watched, QEvent* event) {
  if (m_layout && event->type() == QEvent::Paint) BeforePaint();
  return QObject::eventFilter(watched, event);
}

void LongTextView::BeforePaint() {
  const Anchor anchor = FindAnchor();
  PlaceAround(anchor);
  const int last = static_cast<int>(m_layout->documentSize().height()) - m_control.viewport()->height();
  const int wanted = m_layout->TopOf(anchor.block) - anchor.below;
  QScrollBar& bar = *m_control.verticalScrollBar();
  const int before = bar.value();
  if (wanted == before && last == bar.maximum()) return;
  // While painting goes on nothing may scroll; the whole view is painted again instead.
  const QSignalBlocker quiet(&bar);
  bar.setMaximum(std::max(last, 0));
  bar.setValue(wanted);
  if (bar.value() != before) m_control.viewport()->update();
  QMetaObject::invokeMethod(m_layout, &ParagraphLayout::TellSize, Qt::QueuedConnection);
}

}  // namespace snipdeck

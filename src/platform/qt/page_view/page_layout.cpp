#include "platform/qt/page_view/page_layout.h"

#include <QElapsedTimer>
#include <QTextLayout>
#include <QTimerEvent>

#include "richtext/format_properties.h"

namespace snipdeck {
namespace {

constexpr int kAtOnce = 10;           // milliseconds, before the event loop gets its turn
constexpr int kPlaceAtOnce = 20'000;  // characters

bool KeepsWithNext(const QTextBlock& block) {
  return block.blockFormat().boolProperty(kKeepWithNext) && block.next().isValid();
}

bool BeginsPage(const QTextBlock& block) {
  return block.previous().isValid() && (block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);
}

bool EndsPage(const QTextBlock& block) {
  return block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysAfter;
}

std::vector<LineRoom> RoomsOf(const QTextBlock& block, double scale) {
  const QTextBlockFormat format = block.blockFormat();
  std::vector<LineRoom> rooms;
  const int lines = block.isVisible() ? block.layout()->lineCount() : 0;
  rooms.reserve(static_cast<std::size_t>(lines));
  for (int i = 0; i < lines; ++i) rooms.push_back(RoomOf(block.layout()->lineAt(i), format, scale));
  return rooms;
}

/// The first paragraph of those that are kept with the next one, up to this one.
QTextBlock ChainStart(QTextBlock block) {
  while (block.previous().isValid() && KeepsWithNext(block.previous()) && !BeginsPage(block)) block = block.previous();
  return block;
}

}  // namespace

PageLayout::PageLayout(QTextDocument* document) : FlowLayout(document) {}

void PageLayout::documentChanged(int from, int, int added) {
  const bool isWhole = from == 0 && added >= document()->characterCount();
  m_placing.stop();
  isWhole ? StartAnew() : ChangeBlocks(from, added);
  m_blockCount = document()->blockCount();
  TellSize();
  emit update(QRectF(0, 0, 1e9, 1e9));
  if (HasWork()) m_placing.start(0, this);
}

// Without a page size nothing is placed yet.
void PageLayout::StartAnew() {
  m_placed = 0;
  for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next()) block.clearLayout();
  m_column = FindColumn();
  m_strip = {document()->pageSize().height(), Margin()};
  if (m_strip.Room() > 0) PlaceFor(kAtOnce);
}

// On from the change, until a paragraph comes to stand where it stood.
void PageLayout::ChangeBlocks(int from, int added) {
  if (m_strip.Room() <= 0) return;
  const QTextBlock first = document()->findBlock(from);
  const QTextBlock last = document()->findBlock(std::min(from + added, document()->characterCount() - 1));
  const int placedBefore = m_placed + document()->blockCount() - m_blockCount;
  m_placed = std::min(m_placed, first.blockNumber());
  for (QTextBlock block = first; block.isValid() && block.position() <= last.position(); block = block.next())
    block.clearLayout();
  if (m_placed < first.blockNumber()) return;
  if (added > kPlaceAtOnce) return PlaceFor(kAtOnce);

  QTextBlock block = ChainStart(first);
  while (block.isValid() && block.blockNumber() < std::max(placedBefore, first.blockNumber() + 1)) {
    const bool isBehind = block.position() > last.position() && block.layout()->lineCount() > 0;
    const double stood = block.layout()->position().y();
    const QTextBlock chain = block;
    block = PlaceChain(chain);
    m_placed = std::max(m_placed, block.isValid() ? block.blockNumber() : document()->blockCount());
    // A chain of one paragraph tells by itself that all behind it stays.
    if (isBehind && !KeepsWithNext(chain) && chain.layout()->position().y() == stood) break;
  }
  if (block.isValid()) m_placed = std::max(m_placed, placedBefore);
}

double PageLayout::EndOfBlock(const QTextBlock& block) const {
  const QTextLayout& layout = *block.layout();
  if (!block.isVisible() || layout.lineCount() == 0) return layout.position().y();
  const QTextLine line = layout.lineAt(layout.lineCount() - 1);
  const LineRoom room = RoomOf(line, block.blockFormat(), m_column.scale);
  return layout.position().y() + line.y() + room.raised + std::max(room.advance, room.bottom);
}

// With the space above it; what is lost of that at the end of a page is seen when the lines are stacked.
double PageLayout::StartOf(const QTextBlock& block) const {
  const QTextBlock before = block.previous();
  if (!before.isValid()) return m_strip.TopOf(0);
  double y = EndOfBlock(before);
  if (EndsPage(before) || BeginsPage(block)) y = m_strip.NextTop(y - 0.01);
  return y + SpaceAbove(block, m_column);
}

void PageLayout::Place(const QTextBlock& block, double y) {
  QTextLayout& layout = *block.layout();
  if (layout.lineCount() == 0) BreakLines(block, m_column);
  const std::vector<LineRoom> rooms = RoomsOf(block, m_column.scale);
  const std::vector<double> tops = StackLines(m_strip, rooms, y, block.blockFormat().boolProperty(kKeepTogether));
  const double top = tops.empty() ? y : tops.front();
  layout.setPosition(QPointF(m_column.left, top));
  for (std::size_t i = 0; i < tops.size(); ++i) {
    QTextLine line = layout.lineAt(static_cast<int>(i));
    line.setPosition(QPointF(line.x(), tops[i] - rooms[i].raised - top));
  }
}

int PageLayout::PageOfFirstLine(const QTextBlock& block) const {
  return m_strip.PageOf(block.layout()->position().y());
}

int PageLayout::PageOfLastLine(const QTextBlock& block) const {
  const int lines = block.layout()->lineCount();
  if (lines < 2) return PageOfFirstLine(block);
  const QTextLine last = block.layout()->lineAt(lines - 1);
  return m_strip.PageOf(block.layout()->position().y() + last.y() + last.ascent());
}

void PageLayout::PlaceUnbroken(const QTextBlock& first, const QTextBlock& end) {
  for (QTextBlock block = first; block.isValid() && block != end; block = block.next()) Place(block, StartOf(block));
}

// Paragraphs of which each is kept with the next one, and the one that they are kept with. Where two of them come to stand on
// different pages, the first of them on the page goes over to the next, with what follows it. Gives what comes behind.
QTextBlock PageLayout::PlaceChain(const QTextBlock& first) {
  QTextBlock end = first;
  while (KeepsWithNext(end) && !BeginsPage(end.next())) end = end.next();
  end = end.next();
  PlaceUnbroken(first, end);
  QTextBlock begin = first;  // of those that may go over
  for (QTextBlock block = first; block.next() != end && block.next().isValid(); block = block.next()) {
    if (PageOfFirstLine(begin) != PageOfLastLine(block)) begin = block;
    if (PageOfLastLine(block) == PageOfFirstLine(block.next())) continue;
    const double y = begin.layout()->position().y();
    if (PageOfFirstLine(begin) == PageOfLastLine(block) && !m_strip.IsAtTop(y)) {
      Place(begin, m_strip.NextTop(y));
      PlaceUnbroken(begin.next(), end);
    }
    begin = block.next();
  }
  return end;
}

void PageLayout::PlaceTo(int blockNumber) {
  if (m_strip.Room() <= 0) return;
  QTextBlock block = document()->findBlockByNumber(m_placed);
  while (block.isValid() && m_placed <= blockNumber) {
    block = PlaceChain(block);
    m_placed = block.isValid() ? block.blockNumber() : document()->blockCount();
  }
}

void PageLayout::PlaceFor(int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  while (HasWork() && clock.elapsed() < milliseconds) PlaceTo(m_placed);
}

void PageLayout::timerEvent(QTimerEvent* event) {
  if (event->timerId() != m_placing.timerId()) return FlowLayout::timerEvent(event);
  if (m_strip.Room() > 0) PlaceFor(kAtOnce);
  if (!HasWork() || m_strip.Room() <= 0) m_placing.stop();
  TellSize();
}

void PageLayout::TellSize() {
  const QSizeF size = documentSize();
  if (size == m_toldSize) return;
  m_toldSize = size;
  emit documentSizeChanged(size);
}

int PageLayout::pageCount() const {
  const_cast<PageLayout*>(this)->PlaceTo(document()->blockCount());
  return m_strip.Room() > 0 ? m_strip.PageOf(documentSize().height() - 1) + 1 : 1;
}

QSizeF PageLayout::documentSize() const {
  if (m_placed == 0) return {document()->textWidth(), m_strip.height};
  return {document()->textWidth(), EndOfBlock(document()->findBlockByNumber(m_placed - 1)) + Margin()};
}

QRectF PageLayout::blockBoundingRect(const QTextBlock& block) const {
  if (!block.isValid()) return {};
  if (block.blockNumber() >= m_placed) {
    auto* const self = const_cast<PageLayout*>(this);
    self->PlaceTo(block.blockNumber());
    self->TellSize();
  }
  QRectF place = block.layout()->boundingRect();
  place.moveTopLeft(block.layout()->position());
  return place;
}

QTextBlock PageLayout::BlockAt(double y) const {
  auto* const self = const_cast<PageLayout*>(this);
  while (HasWork() && m_strip.Room() > 0 && documentSize().height() < y) self->PlaceTo(m_placed);
  int above = 0;
  for (int below = std::max(m_placed, 1); below - above > 1;) {
    const int middle = (above + below) / 2;
    (document()->findBlockByNumber(middle).layout()->position().y() <= y ? above : below) = middle;
  }
  return document()->findBlockByNumber(above);
}

// Below the last line of a page there may be room; whoever points there means that line.
int PageLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
  const QTextBlock block = BlockAt(point.y());
  blockBoundingRect(block);
  const QTextLayout& layout = *block.layout();
  const QPointF inBlock = point - layout.position();
  int i = 0;
  while (i + 1 < layout.lineCount() && layout.lineAt(i + 1).y() <= inBlock.y()) ++i;
  if (i >= layout.lineCount()) return block.position();
  const bool isBelowAll = !block.next().isValid() && inBlock.y() > layout.boundingRect().bottom();
  if (isBelowAll && accuracy == Qt::FuzzyHit) return document()->characterCount() - 1;
  const QTextLine line = layout.lineAt(i);
  if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inBlock)) return -1;
  return block.position() + line.xToCursor(inBlock.x());
}

}  // namespace snipdeck

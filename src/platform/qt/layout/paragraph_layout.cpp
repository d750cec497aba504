#include "platform/qt/layout/paragraph_layout.h"

#include <cmath>

#include <QElapsedTimer>
#include <QTextFrame>
#include <QTextLayout>


namespace snipdeck {

namespace {

constexpr int kGuessAtOnce = 2;       // milliseconds, before the event loop gets its turn
constexpr int kPlaceAtOnce = 20'000;  // characters
constexpr int kBlocksAtOnce = 50;
constexpr int kBlocksBetweenClocks = 256;

// Of all layouts, so that no paragraph takes over what was found by another one.
int NewGeneration() {
  static int last = 0;
  return ++last;
}

}  // namespace

ParagraphLayout::ParagraphLayout(QTextDocument* document) : FlowLayout(document) {}

void ParagraphLayout::documentChanged(int from, int, int added) {
  const bool isWhole = from == 0 && added >= document()->characterCount();
  const QTextBlock first = document()->findBlock(from);
  const double top = isWhole ? 0 : TopOf(first);
  if (isWhole) {
    StartAnew();
  } else {
    ChangeBlocks(from, added);
  }
  TellSize();
  emit update(QRectF(0, top, 1e9, 1e9));
  if (HasWork()) emit WorkCame();
}

void ParagraphLayout::StartAnew() {
  m_column = FindColumn();
  m_guess = HeightGuess(m_column, paintDevice());
  m_generation = NewGeneration();
  m_unknownFrom = 0;
  m_widest = 0;
  GuessFor(kGuessAtOnce);
}

// The paragraph behind the change is part of it, since the space above it depends on the one before.
void ParagraphLayout::ChangeBlocks(int from, int added) {
  const QTextBlock first = document()->findBlock(from);
  const QTextBlock last = document()->findBlock(std::min(from + added, document()->characterCount() - 1));
  const QTextBlock end = last.next().next();
  const bool isSmall = added <= kPlaceAtOnce && last.blockNumber() - first.blockNumber() <= kBlocksAtOnce;
  for (QTextBlock block = first; block.isValid() && block != end; block = block.next()) {
    block.setUserState(-1);
    if (isSmall) Place(block, false);
  }
  if (isSmall) return;
  m_unknownFrom = m_unknownFrom < 0 ? first.blockNumber() : std::min(m_unknownFrom, first.blockNumber());
  GuessFor(kGuessAtOnce);
}

void ParagraphLayout::Guess(QTextBlock& block) {
  block.clearLayout();
  block.setLineCount(m_guess.Of(block));
  block.setUserState(m_generation);
}

bool ParagraphLayout::GuessFor(int milliseconds) {
  if (!HasWork()) return false;
  QElapsedTimer clock;
  clock.start();
  QTextBlock block = document()->findBlockByNumber(m_unknownFrom);
  for (int count = 1; block.isValid(); ++count, block = block.next()) {
    if (block.userState() != m_generation) Guess(block);
    if (count % kBlocksBetweenClocks == 0 && clock.elapsed() >= milliseconds) break;
  }
  m_unknownFrom = block.isValid() ? block.blockNumber() : -1;
  return HasWork();
}

void ParagraphLayout::TellSize() {
  const QSizeF size = documentSize();
  if (size == m_toldSize) return;
  m_toldSize = size;
  emit documentSizeChanged(size);
}

bool ParagraphLayout::IsPlaced(const QTextBlock& block) const {
  return block.userState() == m_generation && block.layout()->lineCount() > 0;
}

void ParagraphLayout::Place(QTextBlock block, bool tell) {
  if (!block.isValid() || IsPlaced(block)) return;
  const double above = SpaceAbove(block, m_column);
  const double height = PlaceLines(block, m_column);
  block.setLineCount(block.isVisible() ? static_cast<int>(std::ceil(above + height)) : 0);
  block.setUserState(m_generation);
  m_widest = std::max(m_widest, block.layout()->boundingRect().right());
  if (tell) TellSize();
}

QSizeF ParagraphLayout::documentSize() const {
  return {std::max(document()->textWidth(), m_widest + 2 * Margin()), document()->lineCount() + 2 * Margin()};
}

QRectF ParagraphLayout::blockBoundingRect(const QTextBlock& block) const {
  if (!block.isValid()) return {};
  const_cast<ParagraphLayout*>(this)->Place(block, true);
  QTextLayout& layout = *block.layout();
  layout.setPosition({m_column.left, TopOf(block) + SpaceAbove(block, m_column)});
  QRectF place = layout.boundingRect();
  place.moveTopLeft(layout.position());
  return place;
}

int ParagraphLayout::TopOf(const QTextBlock& block) const {
  return static_cast<int>(Margin()) + block.firstLineNumber();
}

QTextBlock ParagraphLayout::BlockAt(double y) const {
  const int line = static_cast<int>(y - Margin());
  if (line < 0) return document()->firstBlock();
  const QTextBlock block = document()->findBlockByLineNumber(line);
  return block.isValid() ? block : document()->lastBlock();
}

namespace {

/// The line at a height within its paragraph; the first or the last one beyond the ends.
QTextLine LineAt(const QTextLayout& layout, double y) {
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    if (y < line.y() + line.height()) return line;
  }
  return layout.lineAt(layout.lineCount() - 1);
}

}  // namespace

int ParagraphLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
  const QTextBlock block = BlockAt(point.y());
  const QRectF place = blockBoundingRect(block);
  const QPointF inBlock = point - block.layout()->position();
  const QTextLine line = LineAt(*block.layout(), inBlock.y());
  if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inBlock)) return -1;
  if (point.y() < Margin()) return 0;
  if (!block.next().isValid() && point.y() > place.bottom()) return document()->characterCount() - 1;
  return block.position() + line.xToCursor(inBlock.x());
}

}  // namespace snipdeck

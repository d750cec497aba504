#pragma once

#include "platform/qt/layout/flow_layout.h"
#include "platform/qt/layout/height_guess.h"

namespace snipdeck {

/// The layout of a very long text of paragraphs: places the lines of those paragraphs only that somebody asks for, such
/// as the visible ones, and guesses the heights of the others. Any place of the text can so be shown at once, and a
/// change costs what the changed paragraphs cost. It knows no pages.
///
/// The height of a paragraph is its line count: the document keeps the sums of line counts in a tree, whatever is
/// inserted or removed, so one line stands for one pixel here. A paragraph's user state tells for which width its height
/// was found.
class ParagraphLayout : public FlowLayout {
  Q_OBJECT

 public:
  explicit ParagraphLayout(QTextDocument* document);

  int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
  int pageCount() const override { return 1; }
  QSizeF documentSize() const override;
  /// Places the paragraph's lines.
  QRectF blockBoundingRect(const QTextBlock& block) const override;

  QTextBlock BlockAt(double y) const override;
  /// Where a paragraph begins with the space above it, in whole pixels. Exact as far as the heights before it are.
  int TopOf(const QTextBlock& block) const;
  int HeightOf(const QTextBlock& block) const { return block.lineCount(); }
  bool IsPlaced(const QTextBlock& block) const;
  /// Tells documentSizeChanged where `tell`, or else with the next change.
  void Place(QTextBlock block, bool tell);
  /// Goes on guessing heights for so many milliseconds; false when all are known.
  bool GuessFor(int milliseconds);
  bool HasWork() const { return m_unknownFrom >= 0; }
  void TellSize();

 signals:
  /// HasWork has become true.
  void WorkCame();

 protected:
  void documentChanged(int from, int removed, int added) override;

 private:
  void StartAnew();
  void ChangeBlocks(int from, int added);
  void Guess(QTextBlock& block);

  TextColumn m_column;
  HeightGuess m_guess{TextColumn(), nullptr};
  /// Heights whose paragraphs have another user state were found for another width.
  int m_generation = 0;
  /// Number of the first paragraph whose height may be unknown; -1 where all are known.
  int m_unknownFrom = -1;
  double m_widest = 0;
  QSizeF m_toldSize;
};

}  // namespace snipdeck

#pragma once

#include <QBasicTimer>

#include "platform/qt/layout/flow_layout.h"
#include "platform/qt/page_view/page_breaks.h"

namespace snipdeck {

/// The layout of a text of paragraphs in pages of the document's page size, one below the other. Unlike Qt's it keeps
/// paragraphs together, with the next one, and two lines of each on a page; and a change costs what it moves, not what
/// stands behind it. Lines are placed as they are asked for, and the others when there is time.
class PageLayout : public FlowLayout {
  Q_OBJECT

 public:
  explicit PageLayout(QTextDocument* document);

  int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
  /// Places everything.
  int pageCount() const override;
  /// Of what is placed so far.
  QSizeF documentSize() const override;
  /// Places the paragraph's lines.
  QRectF blockBoundingRect(const QTextBlock& block) const override;

  QTextBlock BlockAt(double y) const override;

 protected:
  void documentChanged(int from, int removed, int added) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  bool HasWork() const { return m_placed < document()->blockCount(); }
  void StartAnew();
  void ChangeBlocks(int from, int added);
  void PlaceTo(int blockNumber);
  void PlaceFor(int milliseconds);
  QTextBlock PlaceChain(const QTextBlock& first);
  void PlaceUnbroken(const QTextBlock& first, const QTextBlock& end);
  void Place(const QTextBlock& block, double y);
  double StartOf(const QTextBlock& block) const;
  double EndOfBlock(const QTextBlock& block) const;
  int PageOfFirstLine(const QTextBlock& block) const;
  int PageOfLastLine(const QTextBlock& block) const;
  void TellSize();

  TextColumn m_column;
  PageStrip m_strip;
  /// How many paragraphs are placed, from the start of the text on.
  int m_placed = 0;
  int m_blockCount = 0;
  QSizeF m_toldSize;
  QBasicTimer m_placing;
};

}  // namespace snipdeck

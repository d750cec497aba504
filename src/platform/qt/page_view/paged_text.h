#pragma once

#include <functional>

#include <QAbstractTextDocumentLayout>
#include <QBasicTimer>
#include <QFont>
#include <QList>
#include <QObject>
#include <QTextBlock>

#include "platform/page_geometry.h"
#include "platform/qt/page_view/paper_device.h"

class QPainter;
class QTextDocument;

namespace snipdeck {

/// A document that is laid out in pages of its own geometry as long as this object lives. The text of all pages forms one
/// strip, page under page without the margins; places in it are called dots, and sheets are measured from their upper left
/// corner, both in pixels of 1/96 inch. Pages count from 0. The document's layout is anyone's afterwards: whoever had it before gives it
/// back its paint device and its page size.
class PagedText : public QObject {
 public:
  using PaintContext = QAbstractTextDocumentLayout::PaintContext;

  explicit PagedText(QTextDocument& document);
  ~PagedText();
  Q_DISABLE_COPY_MOVE(PagedText)

  /// Lays everything out anew; pages are placed bit by bit, as they are asked for or when there is time.
  void LayOut();
  /// Whether that is necessary, because the document has got another page since, its first table, or lost its last one.
  bool IsOutdated() const;

  /// Of the whole document; places all of it.
  int CountPages() const;
  /// Of what is placed so far.
  int PlacedPages() const { return m_pages; }
  /// Places all of it now.
  void PlaceAll();
  QSizeF SheetSize() const { return m_sheet; }
  int PageOfDot(double y) const;
  /// The dots that a page shows.
  QRectF DotsOf(int page) const;
  /// From the strip to a page's sheet and back.
  QPointF OnSheet(int page, const QPointF& dot) const;
  QRectF OnSheet(int page, const QRectF& dots) const;
  /// The nearest place of the page's text.
  QPointF FromSheet(int page, const QPointF& point) const;
  /// The place of the line that shows the character at `position` of the document, in dots; width 0.
  QRectF CaretDots(int position) const;

  /// Draws the text of a page on a painter whose origin is the sheet's corner and whose unit is a pixel of 1/96 inch.
  void Paint(QPainter& painter, int page, PaintContext context) const;
  /// The same in black on paper: without a line that the eye does not see.
  void Print(QPainter& painter, int page) const;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  bool HasTables() const;
  void ChooseLayout();
  void FollowLayout();
  void OnStrip(QPainter& painter, int page, const std::function<void()>& draw) const;
  bool CrossesPages(const QTextBlock& block) const;
  void FindPageEnds();
  void LoosenPageEnds(int position, int removed, int added);
  void TightenPageEnds();

  QTextDocument& m_document;
  const QFont m_font;
  const bool m_hadDesignMetrics;
  int m_pages = 1;
  bool m_isOurs = false;   // the layout, which knows more of pages than Qt's and nothing of tables
  QList<int> m_pageEnds;   // where the paragraphs begin that go on over the end of a page
  QList<int> m_loosened;   // and those of them that Qt is being made to look at
  QBasicTimer m_finding;
  PaperDevice m_paper;
  PageGeometry m_geometry;
  QSizeF m_sheet;
  QPointF m_text;       // upper left corner of a page's strip on its sheet
  QSizeF m_strip;       // of one page
  double m_margin = 0;  // what the document keeps free around the text of each page
};

}  // namespace snipdeck

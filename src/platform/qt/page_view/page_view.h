#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QTextCursor>

#include "platform/qt/page_view/paged_text.h"

class QContextMenuEvent;
class QDropEvent;

namespace snipdeck {

class RichTextControl;

/// Lies over a control and shows its document as sheets of paper. It has scroll bars of its own and no text of its own: the
/// control keeps the keyboard and the caret, and gets the mouse with the places that are meant. The control's own scroll
/// bars show nothing meanwhile.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  /// A place in the text and how far below the view's top its line is shown, in pixels of the unzoomed text.
  struct Anchor {
    int position = 0;
    double offset = 0;
  };

  explicit PageView(RichTextControl& control);

  const PagedText& Text() const { return m_text; }
  /// Where the caret is shown, in pixels of the control.
  QRectF CaretRect() const;
  /// The x, in pixels of the control, where a dot of the text is shown.
  double XOfDot(double dot) const;

  /// Shows anew what the control's zoom has become; what stands at the top stays there.
  void Refit();
  Anchor TopAnchor() const;
  void ScrollTo(const Anchor& anchor);
  void ScrollToCaret();
  /// Moves the caret by the height of the view where that is what the key says; false for any other key.
  bool TurnPage(const QKeyEvent& key);

 signals:
  void Moved();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  double Zoom() const;
  QRectF SheetRect(int page) const;
  int PageAt(double y) const;
  QPointF DotAt(const QPointF& viewPoint) const;
  int PositionAt(const QPointF& viewPoint) const;
  QRectF InView(const QRectF& dots) const;
  QRectF CaretAt(int position) const;
  void MoveByView(int direction, QTextCursor::MoveMode mode);
  int CaretPosition() const;

  void FollowDocument();
  void FollowLayout();
  void FitScrollBars();
  void TextHasChanged();
  void ShowCaret();
  void PaintSheet(QPainter& painter, int page) const;
  void PaintCaret(QPainter& painter) const;
  QAbstractTextDocumentLayout::PaintContext Context() const;

  QPointF PointForControl(const QPointF& viewPoint);
  void PassMouse(QMouseEvent& event);
  void PassContextMenu(QContextMenuEvent& event);
  void PassDrag(QDropEvent& event);
  void ScrollBesides();

  RichTextControl& m_control;
  PagedText m_text;
  double m_zoom;
  int m_preeditCaret = 0;
  int m_dropPosition = -1;
  bool m_caretIsOn = true;
  QBasicTimer m_blinking;
  QBasicTimer m_dragging;
};

}  // namespace snipdeck

#pragma once

#include <optional>

#include "platform/qt/control_companion.h"
#include "platform/qt/paragraph_indents.h"

class QHelpEvent;

namespace snipdeck {

/// What of a ruler can be dragged.
enum class RulerHandle { None, FirstLine, LeftIndent, RightIndent, TabStop };

/// A horizontal ruler over a control: the text column with its scale, and the indents and tab stops of the paragraph
/// with the caret as handles. A click into the column adds a tab stop, dragging it off the ruler removes it, a double
/// click turns it into the next kind (left, centre, right, decimal). A change becomes one undo step of all selected
/// paragraphs when the mouse button is let go; Ctrl drags without snapping to the scale.
class TXRuler : public ControlCompanion {
  Q_OBJECT

 public:
  explicit TXRuler(QWidget* parent = nullptr);

  TXRuler* WindowHandle() { return this; }
  /// The x, in pixels of this widget, at which an indent or a tab stop is shown; see ParagraphIndents.
  double XOf(double indent) const { return m_origin + indent * m_shown; }
  double XOf(const QTextOption::Tab& tab) const { return XOf(Shown().TabOrigin() + tab.position * m_zoom); }
  /// The indents as they are shown, also in the middle of a drag.
  const ParagraphIndents& Shown() const { return m_drag ? m_drag->draft : m_indents; }

 protected:
  void Refresh() override;
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  struct Hit {
    RulerHandle handle = RulerHandle::None;
    qsizetype tab = -1;
  };
  struct Drag {
    Hit hit;
    ParagraphIndents draft;
    bool moved = false;
  };

  double RightEdge() const { return XOf(m_columnWidth - Shown().right); }
  QRectF Band() const;
  bool IsOff(const QPointF& point) const;
  Hit HitAt(const QPointF& point) const;
  QString HandleName(const Hit& hit) const;
  double PositionOf(const QMouseEvent& event) const;

  void DragTo(double position);
  void DragTab(double position, bool off);
  void Commit(const ParagraphIndents& changed);
  void PaintIndents(QPainter& painter) const;
  void PaintTabs(QPainter& painter) const;

  ParagraphIndents m_indents;
  double m_origin = 0;  // x of the column's left edge
  double m_columnWidth = 0;
  double m_zoom = 1;
  double m_shown = 1;  // pixels to a unit in which indents are counted
  std::optional<Drag> m_drag;
};

}  // namespace snipdeck

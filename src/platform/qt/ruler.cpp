#include "platform/qt/ruler.h"

#include <QAbstractTextDocumentLayout>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextTable>
#include <QToolTip>

#include "platform/qt/rich_text_control.h"
#include "platform/qt/ruler_scale.h"

namespace snipdeck {
namespace {

constexpr int kNumberPixels = 10;
constexpr double kBandInset = 4;     // pixels above and below the scale, where the indent handles reach into
constexpr double kHandleReach = 6;   // pixels to either side within which a handle is caught
constexpr double kOffDistance = 14;  // pixels above or below the ruler where a tab stop comes off
constexpr double kLeastTextWidth = 20;

RulerUnit Unit() {
  return UnitOf(QLocale().measurementSystem());
}

bool Near(double a, double b) {
  return std::abs(a - b) <= kHandleReach;
}

QTextOption::TabType NextKind(QTextOption::TabType kind) {
  switch (kind) {
    case QTextOption::LeftTab:
      return QTextOption::CenterTab;
    case QTextOption::CenterTab:
      return QTextOption::RightTab;
    case QTextOption::RightTab:
      return QTextOption::DelimiterTab;
    default:
      return QTextOption::LeftTab;
  }
}

// A triangle with its point at (x, tip); `down` tells which way it points.
QPolygonF Triangle(double x, double tip, bool down) {
  constexpr double kHalfWidth = 4.5;
  constexpr double kHeight = 6;
  const double base = down ? tip - kHeight : tip + kHeight;
  return QPolygonF({QPointF(x - kHalfWidth, base), QPointF(x + kHalfWidth, base), QPointF(x, tip)});
}

// Qt shows an empty paragraph below a table at the end of the table's last row.
bool IsBesideTable(const QTextBlock& block) {
  const QTextBlock before = block.previous();
  return block.length() == 1 && before.isValid() && !QTextCursor(block).currentTable() &&
         QTextCursor(before).currentTable();
}

void SortTabs(QList<QTextOption::Tab>& tabs) {
  std::sort(tabs.begin(), tabs.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
}

}  // namespace

TXRuler::TXRuler(QWidget* parent) : ControlCompanion(parent) {
  setAccessibleName(tr("Ruler"));
  setMouseTracking(true);
  QFont numbers = font();
  numbers.setPixelSize(kNumberPixels);
  setFont(numbers);
}

void TXRuler::Refresh() {
  const RichTextControl* const control = Control();
  update();
  if (!control) return;
  const QTextBlock block = control->AsItStands().textCursor().block();
  const QTextDocument* const document = control->AsItStands().document();
  const RichTextControl::LayoutScale scale = control->ScaleOfLayout();
  m_zoom = scale.perPixel;
  m_shown = scale.shown;
  const double viewLeft = mapFromGlobal(control->mapToGlobal(QPoint())).x() + scale.left;
  const double margin = document->documentMargin() * m_zoom;
  const double blockLeft = document->documentLayout()->blockBoundingRect(block).left();
  const double columnLeft = IsBesideTable(block) ? margin : std::max(margin, blockLeft);
  m_origin = viewLeft + columnLeft * m_shown;
  m_columnWidth = std::max(document->textWidth() - columnLeft - margin, 0.0);
  m_indents = IndentsOf(block, m_zoom);
}

QRectF TXRuler::Band() const {
  return QRectF(rect()).adjusted(0, kBandInset, 0, -kBandInset);
}

bool TXRuler::IsOff(const QPointF& point) const {
  return point.y() < -kOffDistance || point.y() > height() + kOffDistance;
}

// The upper half of the ruler belongs to the first-line handle; below, tab stops give way to the indents they stand on.
TXRuler::Hit TXRuler::HitAt(const QPointF& point) const {
  const ParagraphIndents& shown = Shown();
  if (point.y() < height() / 2.0 && Near(point.x(), XOf(shown.firstLine))) return {RulerHandle::FirstLine};
  if (point.y() >= height() / 2.0 && Near(point.x(), XOf(shown.left))) return {RulerHandle::LeftIndent};
  if (point.y() >= height() / 2.0 && Near(point.x(), RightEdge())) return {RulerHandle::RightIndent};
  for (qsizetype i = 0; i < shown.tabs.size(); ++i)
    if (Near(point.x(), XOf(shown.tabs[i]))) return {RulerHandle::TabStop, i};
  return {};
}

QString TXRuler::HandleName(const Hit& hit) const {
  switch (hit.handle) {
    case RulerHandle::FirstLine:
      return tr("First line");
    case RulerHandle::LeftIndent:
      return tr("Left indent");
    case RulerHandle::RightIndent:
      return tr("Right indent");
    case RulerHandle::TabStop:
      switch (Shown().tabs[hit.tab].type) {
        case QTextOption::CenterTab:
          return tr("Centred tab stop");
        case QTextOption::RightTab:
          return tr("Right tab stop");
        case QTextOption::DelimiterTab:
          return tr("Decimal tab stop");
        default:
          return tr("Left tab stop");
      }
    case RulerHandle::None:
      break;
  }
  return tr("Click to add a tab stop");
}

// Where in the text column the pointer is, drawn to the nearest fine mark of the scale.
double TXRuler::PositionOf(const QMouseEvent& event) const {
  const double position = (event.position().x() - m_origin) / m_shown;
  if (event.modifiers() & Qt::ControlModifier) return position;
  const double snap = Unit().snap * m_zoom;
  return std::round(position / snap) * snap;
}

void TXRuler::mousePressEvent(QMouseEvent* event) {
  if (!Control() || event->button() != Qt::LeftButton) return;
  Refresh();
  Drag drag{HitAt(event->position()), m_indents, false};
  const double position = PositionOf(*event);
  const bool inColumn = position > m_indents.TabOrigin() && position < m_columnWidth;
  if (drag.hit.handle == RulerHandle::None && inColumn) {
    drag.draft.tabs.append(QTextOption::Tab((position - m_indents.TabOrigin()) / m_zoom, QTextOption::LeftTab));
    drag.hit = {RulerHandle::TabStop, drag.draft.tabs.size() - 1};
    drag.moved = true;
  }
  if (drag.hit.handle != RulerHandle::None) m_drag = drag;
  update();
}

void TXRuler::mouseMoveEvent(QMouseEvent* event) {
  if (!m_drag) {
    setCursor(HitAt(event->position()).handle == RulerHandle::None ? Qt::ArrowCursor : Qt::SizeHorCursor);
    return;
  }
  const double position = PositionOf(*event);
  m_drag->moved = true;
  if (m_drag->hit.handle == RulerHandle::TabStop)
    DragTab(position, IsOff(event->position()));
  else
    DragTo(position);
  update();
}

void TXRuler::DragTo(double position) {
  ParagraphIndents& draft = m_drag->draft;
  const double room = m_columnWidth - draft.right - kLeastTextWidth;
  if (m_drag->hit.handle == RulerHandle::FirstLine) draft.firstLine = qBound(0.0, position, std::max(room, 0.0));
  if (m_drag->hit.handle == RulerHandle::LeftIndent) {
    const double hanging = m_indents.firstLine - m_indents.left;
    const double least = std::max(draft.listShare, -hanging);
    draft.left = qBound(least, position, std::max(room, least));
    draft.firstLine = draft.left + hanging;
  }
  if (m_drag->hit.handle == RulerHandle::RightIndent) {
    const double most = m_columnWidth - std::max(draft.left, draft.firstLine) - kLeastTextWidth;
    draft.right = qBound(0.0, m_columnWidth - position, std::max(most, 0.0));
  }
}

// A tab stop that is off the ruler is shown nowhere; it is not lost before the button is let go.
void TXRuler::DragTab(double position, bool off) {
  const double least = Unit().snap;
  QTextOption::Tab& tab = m_drag->draft.tabs[m_drag->hit.tab];
  const double most = std::max(least, m_columnWidth / m_zoom);
  tab.position = off ? -1 : qBound(least, (position - m_indents.TabOrigin()) / m_zoom, most);
}

void TXRuler::mouseReleaseEvent(QMouseEvent* event) {
  if (!m_drag || event->button() != Qt::LeftButton) return;
  ParagraphIndents changed = m_drag->draft;
  const bool moved = m_drag->moved;
  m_drag.reset();
  erase_if(changed.tabs, [](const QTextOption::Tab& tab) { return tab.position < 0; });
  SortTabs(changed.tabs);
  if (moved) Commit(changed);
  update();
}

void TXRuler::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!Control() || event->button() != Qt::LeftButton) return;
  Refresh();
  const Hit hit = HitAt(event->position());
  if (hit.handle != RulerHandle::TabStop) return mousePressEvent(event);
  ParagraphIndents changed = m_indents;
  QTextOption::Tab& tab = changed.tabs[hit.tab];
  tab.type = NextKind(tab.type);
  if (tab.type == QTextOption::DelimiterTab) tab.delimiter = QLocale().decimalPoint().at(0);
  Commit(changed);
}

void TXRuler::Commit(const ParagraphIndents& changed) {
  if (!Control() || Control()->isReadOnly()) return;
  ApplyIndents(Control()->textCursor(), m_indents, changed);
  Refresh();
}

// The place of the text under the ruler depends on where both stand.
void TXRuler::resizeEvent(QResizeEvent* event) {
  ControlCompanion::resizeEvent(event);
  ScheduleRefresh();
}

void TXRuler::moveEvent(QMoveEvent* event) {
  ControlCompanion::moveEvent(event);
  ScheduleRefresh();
}

bool TXRuler::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Control()) {
    auto* const help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), HandleName(HitAt(help->pos())), this);
    return true;
  }
  return ControlCompanion::event(event);
}

void TXRuler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  const QRectF band = Band();
  painter.fillRect(band, palette().color(QPalette::Mid));
  if (!Control()) return;
  const QRectF column(m_origin, band.top(), m_columnWidth * m_shown, band.height());
  painter.fillRect(column, palette().color(QPalette::Base));
  PaintRulerScale(painter, column.intersected(band), m_origin, m_zoom * m_shown, Unit(), palette().color(QPalette::Text));
  PaintTabs(painter);
  PaintIndents(painter);
}

void TXRuler::PaintIndents(QPainter& painter) const {
  const QRectF band = Band();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::WindowText));
  painter.drawPolygon(Triangle(XOf(Shown().firstLine), band.top() + 2.5, true));
  painter.drawPolygon(Triangle(XOf(Shown().left), band.bottom() - 2.5, false));
  painter.drawPolygon(Triangle(RightEdge(), band.bottom() - 2.5, false));
}

void TXRuler::PaintTabs(QPainter& painter) const {
  constexpr double kFoot = 5;
  constexpr double kStem = 7;
  const double bottom = Band().bottom() - 1;
  const QColor colour = palette().color(QPalette::Text);
  for (const QTextOption::Tab& tab : Shown().tabs) {
    if (tab.position < 0) continue;
    const double x = qRound(XOf(tab));
    const double left = tab.type == QTextOption::LeftTab ? x : x - kFoot;
    const double right = tab.type == QTextOption::RightTab ? x + 2 : x + 2 + kFoot;
    painter.fillRect(QRectF(left - 1, bottom - kStem - 1, right - left + 2, kStem + 1),
                     palette().color(QPalette::Base));
    painter.fillRect(QRectF(x, bottom - kStem, 2, kStem), colour);
    painter.fillRect(QRectF(left, bottom - 2, right - left, 2), colour);
    if (tab.type == QTextOption::DelimiterTab) painter.fillRect(QRectF(x + 4, bottom - 6, 2, 2), colour);
  }
}

}  // namespace snipdeck

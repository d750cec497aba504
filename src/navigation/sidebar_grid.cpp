#include "navigation/sidebar_grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPixmap>

#include "navigation/sidebar_delegate.h"
#include "navigation/sidebar_rows.h"

namespace snipdeck {

namespace {

bool LeadsToText(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers =
      event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
  if (event.key() == Qt::Key_S) return modifiers == (Qt::ControlModifier | Qt::AltModifier);
  return event.key() == Qt::Key_X && modifiers == Qt::AltModifier;
}

bool RunsRow(const QKeyEvent& event) {
  return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

SidebarGrid::SidebarGrid(QWidget* parent) : QTableWidget(kSidebarRowCount, 1, parent) {
  setObjectName(QStringLiteral("iGridListBar"));
  setAccessibleName(tr("Sidebar"));
  setItemDelegate(new SidebarDelegate(this));
  setFrameShape(QFrame::NoFrame);
  setShowGrid(false);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setMouseTracking(true);
  horizontalHeader()->hide();
  verticalHeader()->hide();
  QPalette colours = palette();
  colours.setColor(QPalette::Base, kSidebarGrey);
  setPalette(colours);
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int) { emit RowChosen(row + 1); });
  connect(this, &QTableWidget::cellEntered, this, [this](int row, int) { SetHotRow(row + 1); });
}

void SidebarGrid::Fill(const QFont& font) {
  setColumnWidth(0, kColumnWidth);
  for (int row = 0; row < kSidebarRowCount; ++row) {
    const SidebarRow& content = kSidebarRows[static_cast<size_t>(row)];
    auto* cell = new QTableWidgetItem(tr(content.caption));
    cell->setData(SidebarDelegate::kIconRole, QString::fromLatin1(content.icon));
    cell->setFont(font);
    setRowHeight(row, kRowHeight);
    setItem(row, 0, cell);
    PaintRow(row + 1, false);
  }
  SelectRow(1);
}

void SidebarGrid::SelectRow(int row) {
  setCurrentCell(row - 1, 0, QItemSelectionModel::ClearAndSelect);
}

void SidebarGrid::SetRowEnabled(int row, bool enabled) {
  if (QTableWidgetItem* cell = item(row - 1, 0))
    cell->setFlags(enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::ItemFlags(Qt::ItemIsSelectable));
}

void SidebarGrid::keyPressEvent(QKeyEvent* event) {
  if (LeadsToText(*event)) {
    emit LeaveAsked();
  } else if (RunsRow(*event)) {
    emit RowChosen(CurrentRow());
  } else {
    QTableWidget::keyPressEvent(event);
  }
}

bool SidebarGrid::event(QEvent* event) {
  // Alt+X would otherwise open a menu that has this letter.
  if (event->type() == QEvent::ShortcutOverride && LeadsToText(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QTableWidget::event(event);
}

bool SidebarGrid::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) SetHotRow(0);
  if (event->type() == QEvent::MouseMove && !indexAt(static_cast<QMouseEvent*>(event)->position().toPoint()).isValid())
    SetHotRow(0);
  return QTableWidget::viewportEvent(event);
}

void SidebarGrid::SetHotRow(int row) {
  if (row == m_hotRow) return;
  if (m_hotRow > 0) PaintRow(m_hotRow, false);
  m_hotRow = row;
  if (row > 0) {
    viewport()->setCursor(m_handPointer);
    PaintRow(row, true);
  } else {
    viewport()->unsetCursor();
  }
}

void SidebarGrid::PaintRow(int row, bool hot) {
  QTableWidgetItem* cell = item(row - 1, 0);
  if (!cell) return;
  cell->setBackground(hot ? kSidebarHotGround : kSidebarGrey);
  cell->setForeground(hot ? kSidebarHotText : kSidebarText);
}

QCursor LoadHandPointer(const QString& folder) {
  const QPixmap hand(folder + QStringLiteral("/HandOpen.ico"));
  return hand.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(hand);
}

}  // namespace snipdeck

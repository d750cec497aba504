#pragma once

#include <QTableWidget>

namespace snipdeck {

/// The sidebar's grid: one column of thirteen rows, each a picture over a caption. It knows rows, not commands.
class SidebarGrid : public QTableWidget {
  Q_OBJECT

 public:
  static constexpr int kColumnWidth = 140;  // pixels
  static constexpr int kRowHeight = 64;     // pixels

  explicit SidebarGrid(QWidget* parent);

  /// Gives every row its picture and caption, shows the grid and makes row 1 the current one.
  void Fill(const QFont& font);
  /// Rows count from 1; 0 where no row is the current one.
  int CurrentRow() const { return currentRow() + 1; }
  /// Makes a row the current one and marks its cell as selected.
  void SelectRow(int row);
  /// A row whose command cannot run is greyed out.
  void SetRowEnabled(int row, bool enabled);
  void SetHandPointer(const QCursor& pointer) { m_handPointer = pointer; }

 signals:
  /// The mouse was pressed and let go on a row, or Space or Enter pressed on it.
  void RowChosen(int row);
  /// The keys that lead back to the text.
  void LeaveAsked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void SetHotRow(int row);
  void PaintRow(int row, bool hot);

  QCursor m_handPointer = Qt::PointingHandCursor;
  int m_hotRow = 0;
};

/// The hand of the file HandOpen.ico in `folder`; where that cannot be loaded, the desktop's own hand.
QCursor LoadHandPointer(const QString& folder);

}  // namespace snipdeck

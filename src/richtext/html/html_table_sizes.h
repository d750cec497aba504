#pragma once

#include <QList>

namespace snipdeck {

/// Keeps the tables of a page within what Qt can take: it needs time and memory for each place of a table's grid, also where
/// a row has no cell for it, and it numbers a whole grid anew for each place that a wide or tall cell covers.
class HtmlTableSizes {
 public:
  static constexpr int kMaxColumnSpan = 200;
  static constexpr int kMaxRowSpan = 100;

  void StartTable() { m_open.append(Table()); }
  void EndTable() { m_open.removeLast(); }
  /// Whether the next row had better begin a further table: cells that cover several places are cheap in short ones.
  bool WantsFurtherTable() const;
  void StartFurtherTable() { m_open.last() = Table(); }
  void StartRow();
  /// Whether the cell may cover that many places; else it counts as one.
  bool AddCell(int columns, int rows);
  /// Whether all tables together have grown so large that what follows is to be no table.
  bool IsFull() const;

 private:
  struct Table {
    int rows = 0;
    int width = 0;        ///< Columns of its widest row.
    int rowWidth = 0;     ///< Columns of the last row.
    int tallColumns = 0;  ///< Columns of all its tall cells, which push others aside.
    int reach = 0;        ///< How many rows the tall cells reach down, from the last one on.
    bool hasSpans = false;
  };

  QList<Table> m_open;
  qint64 m_places = 0;
  qint64 m_work = 0;
};

}  // namespace snipdeck

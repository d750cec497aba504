#pragma once

#include <functional>
#include <map>
#include <vector>

#include <QByteArray>

#include "richtext/xlsx/xlsx_workbook.h"

namespace snipdeck {

/// The cells of one sheet, as far as they show something. Rows and columns count from 0.
struct XlsxSheet {
  struct Cell {
    QString text;
    bool bold = false;
    bool italic = false;
    bool isNumber = false;
  };
  struct Merge {
    int row = 0, column = 0, lastRow = 0, lastColumn = 0;
  };
  using Row = std::map<int, Cell>;

  std::map<int, Row> rows;
  std::vector<Merge> merges;
  int columns = 0;  ///< that are used
  bool isCut = false;

  /// False when `progress` did not let it go on.
  bool Read(const QByteArray& part, const XlsxWorkbook& workbook, const std::function<bool(double)>& progress);
  std::size_t CellCount() const;
};

/// Row and column of "B3"; -1 for both where it is none.
std::pair<int, int> CellPlace(QStringView reference);

}  // namespace snipdeck

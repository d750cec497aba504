#include "richtext/html/html_table_sizes.h"

#include <algorithm>

namespace snipdeck {
namespace {

constexpr qint64 kMaxPlaces = 100'000;
constexpr qint64 kMaxWork = 30'000'000;  // places that are numbered anew
constexpr int kRowsWithSpans = 50;

}  // namespace

bool HtmlTableSizes::WantsFurtherTable() const {
  if (m_open.isEmpty()) return false;
  const Table& table = m_open.last();
  return table.hasSpans && table.rows >= kRowsWithSpans && table.reach <= 1;
}

void HtmlTableSizes::StartRow() {
  if (m_open.isEmpty()) return;
  Table& table = m_open.last();
  ++table.rows;
  table.rowWidth = 0;
  table.reach = std::max(table.reach - 1, 0);
  m_places += table.width + table.tallColumns;
}

bool HtmlTableSizes::AddCell(int columns, int rows) {
  if (m_open.isEmpty()) return false;
  Table& table = m_open.last();
  const qint64 rowsInAll = std::max(table.rows, kRowsWithSpans) + kRowsWithSpans;
  const qint64 work = qint64(columns) * rows * rowsInAll * (table.width + table.tallColumns + columns);
  const bool mayCover = columns * rows > 1 && m_work + work <= kMaxWork;
  table.rowWidth += mayCover ? columns : 1;
  table.width = std::max(table.width, table.rowWidth);
  if (!mayCover) return false;
  m_work += work;
  table.hasSpans = true;
  table.reach = std::max(table.reach, rows);
  if (rows > 1) table.tallColumns += columns;
  return true;
}

bool HtmlTableSizes::IsFull() const {
  return m_places + (m_open.isEmpty() ? 0 : m_open.last().rowWidth) > kMaxPlaces;
}

}  // namespace snipdeck

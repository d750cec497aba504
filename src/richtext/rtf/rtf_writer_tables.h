#pragma once

#include <QTextTable>

#include "richtext/rtf/rtf_header.h"

namespace snipdeck {

/// The width that a page leaves to its text, in twips; what a letter page has when the document says nothing.
int TextWidthTwips(const QTextDocument& document);

struct TableShape {
  QList<int> edges;  ///< right edges of the columns, in twips from the table's left edge
  /// Wide cells show by their edges which columns they span; where an edge is no cell's own, they must say it.
  bool spansAreNamed = false;
};
TableShape ShapeOf(const QTextTable& table, int textWidthTwips);

/// The definition of one row: its place, its cells' edges, merges, borders and shading.
void WriteRowDefinition(RtfOutput& out, RtfHeader& header, const QTextTable& table, int row, const TableShape& shape);

}  // namespace snipdeck

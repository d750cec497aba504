#pragma once

#include <QTextTable>

#include "richtext/ooxml/xml_out.h"

namespace snipdeck {

/// What stands before the rows of a table: its place, its paddings and its columns. `edges` are the right edges of
/// the columns, in twips from the table's left edge.
void WriteTableStart(XmlOut& out, const QTextTable& table, const QList<int>& edges);
void WriteRowProperties(XmlOut& out, const QTextTable& table, int row);
/// The properties of the cell that stands in `row`; below its first row a cell only goes on.
void WriteCellProperties(XmlOut& out, const QTextTable& table, const QTextTableCell& cell, int row,
                         const QList<int>& edges);

}  // namespace snipdeck

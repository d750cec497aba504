#pragma once

#include <QTextTable>

#include "richtext/rtf_header.h"

namespace snipdeck {

/// The width that a page leaves to its text, in twips; what a letter page has when the document says nothing.
int TextWidthTwips(const QTextDocument& document);

/// The right edges of a table's columns, in twips from the table's left edge.
QList<int> ColumnEdges(const QTextTable& table, int textWidthTwips);

/// The definition of one row: its place, its cells' edges, merges, borders and shading.
void WriteRowDefinition(RtfOutput& out, RtfHeader& header, const QTextTable& table, int row, const QList<int>& edges);

}  // namespace snipdeck

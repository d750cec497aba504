#pragma once

class QTextBlock;

namespace snipdeck {

/// Gives an empty paragraph before a table its room: Qt hides one that looks like the mere place where the table stands.
/// Nothing happens to a paragraph with text or a ground of its own, and nothing of it is ever written to a file.
void ShowBlankLine(const QTextBlock& block);

/// An empty paragraph that neither begins the text or a cell, where it may only separate, nor follows a table.
bool IsBlankLine(const QTextBlock& block);
/// Whether a person who sees no line there would miss one: a blank line before a table that was not given its room.
bool IsHiddenBlankLine(const QTextBlock& block);

/// An empty paragraph right below a table that is a line of its own and not merely the place behind the table: text goes
/// on below it, or it was given its room before another table. Qt shows it nowhere, whatever its format.
bool IsBlankLineBelowTable(const QTextBlock& block);

}  // namespace snipdeck

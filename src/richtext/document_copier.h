#pragma once

#include <QTextCursor>

class QTextDocument;

namespace snipdeck {

/// Inserts the characters [begin, end) of `source` in place of the cursor's selection, as one undo step; the cursor
/// then stands behind them. Formats, lists, tables and pictures come along. The first paragraph joins the caret's
/// paragraph when that one has text, and so does the last; an empty paragraph takes the format of what comes.
void CopyText(const QTextDocument& source, int begin, int end, QTextCursor& cursor);

/// The position behind the last character of `document`.
int EndOf(const QTextDocument& document);

}  // namespace snipdeck

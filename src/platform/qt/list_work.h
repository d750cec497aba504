#pragma once

#include <QTextCursor>
#include <QTextListFormat>

namespace snipdeck {

/// How the paragraphs of a list are marked. ListStyleUndefined stands for no list.
struct ListTraits {
  QTextListFormat::Style style = QTextListFormat::ListStyleUndefined;
  QString suffix = QStringLiteral(".");  ///< behind a number
  int level = 1;                         ///< from 1
  int start = 1;                         ///< the number of the first paragraph, from 0

  bool operator==(const ListTraits&) const = default;
};

bool IsNumbered(QTextListFormat::Style style);
/// Of the paragraph with the caret.
ListTraits ListAt(const QTextCursor& cursor);
/// Makes the paragraphs of the selection one list, or takes them out of theirs; one undo step.
void SetList(QTextCursor cursor, const ListTraits& traits);

/// The caret's paragraph, which was split off just now, does not keep a number that was written for the one before it.
void CountNewItem(QTextCursor cursor);

}  // namespace snipdeck

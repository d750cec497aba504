#pragma once

#include <optional>

#include <QList>
#include <QString>

class QTextCursor;
class QTextDocument;

namespace snipdeck {

/// What to look for. A blank also finds a blank that does not break.
struct SearchPattern {
  QString text;
  bool matchCase = false;
  bool wholeWords = false;
};

/// A stretch of characters in a document.
struct TextMatch {
  int begin = 0;
  int end = 0;
};

/// Where the pattern occurs in one paragraph, from left to right and without overlaps; an empty pattern occurs nowhere.
QList<int> MatchesIn(const QString& paragraph, const SearchPattern& pattern);

/// The first match that begins at or behind `from`, or, backwards, the last one that ends at or before it.
std::optional<TextMatch> FindMatch(const QTextDocument& document, const SearchPattern& pattern, int from,
                                   bool backwards);

/// Puts `replacement` in place of every match, each with the format of what it replaces; its own text is not searched
/// again. One undo step of `cursor`. Returns how many there were.
int ReplaceAllMatches(QTextCursor cursor, const SearchPattern& pattern, const QString& replacement);

}  // namespace snipdeck

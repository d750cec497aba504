#include "platform/qt/dialogs/text_search.h"

#include <QStringMatcher>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace snipdeck {

namespace {

QString WithPlainBlanks(QString text) {
  return text.replace(QChar::Nbsp, QLatin1Char(' '));
}

bool IsWordCharacter(QChar c) {
  return c.isLetterOrNumber() || c.isMark() || c == u'_' || c.isSurrogate();
}

bool IsWholeWord(const QString& text, qsizetype begin, qsizetype end) {
  const bool goesOnBefore = begin > 0 && IsWordCharacter(text[begin - 1]) && IsWordCharacter(text[begin]);
  const bool goesOnBehind = end < text.size() && IsWordCharacter(text[end - 1]) && IsWordCharacter(text[end]);
  return !goesOnBefore && !goesOnBehind;
}

std::optional<TextMatch> FirstFrom(const QTextBlock& block, const SearchPattern& pattern, int from) {
  for (const int offset : MatchesIn(block.text(), pattern)) {
    const int begin = block.position() + offset;
    if (begin >= from) return TextMatch{begin, begin + static_cast<int>(pattern.text.size())};
  }
  return std::nullopt;
}

std::optional<TextMatch> LastUpTo(const QTextBlock& block, const SearchPattern& pattern, int from) {
  std::optional<TextMatch> last;
  for (const int offset : MatchesIn(block.text(), pattern)) {
    const int begin = block.position() + offset;
    const int end = begin + static_cast<int>(pattern.text.size());
    if (end <= from) last = TextMatch{begin, end};
  }
  return last;
}

void Replace(QTextCursor& cursor, const TextMatch& match, const QString& replacement) {
  cursor.setPosition(match.begin + 1);  // the format at a position is that of the character before it
  const QTextCharFormat format = cursor.charFormat();
  cursor.setPosition(match.begin);
  cursor.setPosition(match.end, QTextCursor::KeepAnchor);
  cursor.insertText(replacement, format);
}

}  // namespace

QList<int> MatchesIn(const QString& paragraph, const SearchPattern& pattern) {
  QList<int> found;
  if (pattern.text.isEmpty() || paragraph.size() < pattern.text.size()) return found;
  const QString text = WithPlainBlanks(paragraph);
  const QStringMatcher matcher(WithPlainBlanks(pattern.text),
                               pattern.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
  const qsizetype length = pattern.text.size();
  for (qsizetype at = matcher.indexIn(text); at >= 0;) {
    const bool counts = !pattern.wholeWords || IsWholeWord(text, at, at + length);
    if (counts) found.append(static_cast<int>(at));
    at = matcher.indexIn(text, at + (counts ? length : 1));
  }
  return found;
}

std::optional<TextMatch> FindMatch(const QTextDocument& document, const SearchPattern& pattern, int from,
                                   bool backwards) {
  QTextBlock block = document.findBlock(from);
  if (!block.isValid()) block = document.lastBlock();
  for (; block.isValid(); block = backwards ? block.previous() : block.next()) {
    if (const auto match = backwards ? LastUpTo(block, pattern, from) : FirstFrom(block, pattern, from)) return match;
  }
  return std::nullopt;
}

// From the end to the beginning, so that the places that are still to come stay where they are.
int ReplaceAllMatches(QTextCursor cursor, const SearchPattern& pattern, const QString& replacement) {
  int count = 0;
  cursor.beginEditBlock();
  for (QTextBlock block = cursor.document()->lastBlock(); block.isValid();) {
    const int begin = block.position();
    const QList<int> matches = MatchesIn(block.text(), pattern);
    block = block.previous();
    for (auto offset = matches.crbegin(); offset != matches.crend(); ++offset) {
      Replace(cursor, {begin + *offset, begin + *offset + static_cast<int>(pattern.text.size())}, replacement);
    }
    count += static_cast<int>(matches.size());
  }
  cursor.endEditBlock();
  return count;
}

}  // namespace snipdeck

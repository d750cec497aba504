#include "richtext/pdf/paper_text.h"

#include <algorithm>

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include "richtext/blank_lines.h"
#include "richtext/format_properties.h"
#include "richtext/format_values.h"

namespace snipdeck {
namespace {

constexpr int kPixelsPerInch = 96;

bool IsRightToLeft(QChar c) {
  return c.direction() == QChar::DirR || c.direction() == QChar::DirAL;
}

bool IsSmall(QChar c) {
  return c.category() == QChar::Letter_Lowercase;
}

/// A run of text and its format, which stay while the document's formats are changed.
struct Stretch {
  int position;
  QString text;
  QTextCharFormat format;
};

template <typename Condition>
QList<Stretch> StretchesWhere(const QTextBlock& block, Condition condition) {
  QList<Stretch> found;
  for (auto it = block.begin(); !it.atEnd(); ++it) {
    const QTextFragment fragment = it.fragment();
    const QTextCharFormat format = fragment.charFormat();
    if (condition(format)) found.append({fragment.position(), fragment.text(), format});
  }
  return found;
}

void Select(QTextCursor& cursor, qsizetype begin, qsizetype end) {
  cursor.setPosition(static_cast<int>(begin));
  cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
}

// From the last run to the first, since what is removed moves all that follows.
void RemoveHidden(QTextCursor& cursor, const QTextBlock& block) {
  QList<Stretch> hidden = StretchesWhere(block, [](const auto& format) { return format.boolProperty(kHiddenText); });
  std::reverse(hidden.begin(), hidden.end());
  for (const Stretch& stretch : std::as_const(hidden)) {
    Select(cursor, stretch.position, stretch.position + stretch.text.size());
    cursor.removeSelectedText();
  }
}

/// Takes the letter spacing of the document's font from words that run from right to left: with it, readers of PDF
/// files find a blank behind each letter.
void JoinRightToLeft(QTextCursor& cursor, const QTextBlock& block) {
  QTextCharFormat joined;
  joined.setFontLetterSpacingType(QFont::AbsoluteSpacing);
  joined.setFontLetterSpacing(0);
  const QString text = block.text();
  for (auto begin = std::find_if(text.begin(), text.end(), IsRightToLeft); begin != text.end();) {
    const auto end = std::find_if(begin, text.end(), [](QChar c) { return c.isLetter() && !IsRightToLeft(c); });
    Select(cursor, block.position() + (begin - text.begin()), block.position() + (end - text.begin()));
    cursor.mergeCharFormat(joined);
    begin = std::find_if(end, text.end(), IsRightToLeft);
  }
}

/// Qt makes the small capitals of a screen's size, whatever the text is placed for; here they become capitals of a
/// smaller font, as large as those on the screen.
void SpellOutSmallCapitals(QTextCursor& cursor, const QTextBlock& block, const QFont& defaults) {
  constexpr double kSmall = 0.7;
  const auto hasThem = [](const auto& format) { return format.fontCapitalization() == QFont::SmallCaps; };
  const QList<Stretch> stretches = StretchesWhere(block, hasThem);
  for (const Stretch& stretch : stretches) {
    const QString& text = stretch.text;
    for (auto begin = text.begin(); begin != text.end();) {
      const bool isSmall = IsSmall(*begin);
      const auto end = std::find_if(begin, text.end(), [isSmall](QChar c) { return IsSmall(c) != isSmall; });
      QTextCharFormat spelt = stretch.format;
      spelt.setFontCapitalization(isSmall ? QFont::AllUppercase : QFont::MixedCase);
      spelt.clearProperty(QTextFormat::FontPixelSize);
      spelt.setFontPointSize((isSmall ? kSmall : 1) * PointSize(stretch.format, defaults));
      Select(cursor, stretch.position + (begin - text.begin()), stretch.position + (end - text.begin()));
      cursor.setCharFormat(spelt);
      begin = end;
    }
  }
}

/// Qt takes the indents of paragraphs for dots, while it converts all else from pixels.
void ScaleIndents(QTextCursor& cursor, const QTextBlock& block, double scale) {
  const QTextBlockFormat format = block.blockFormat();
  QTextBlockFormat scaled;
  if (format.leftMargin() != 0) scaled.setLeftMargin(format.leftMargin() * scale);
  if (format.rightMargin() != 0) scaled.setRightMargin(format.rightMargin() * scale);
  if (format.textIndent() != 0) scaled.setTextIndent(format.textIndent() * scale);
  if (scaled.propertyCount() == 0) return;
  cursor.setPosition(block.position());
  cursor.mergeBlockFormat(scaled);
}

/// With a character that has no width in it, the line gets its room.
void ShowBelowTable(QTextCursor& cursor, const QTextBlock& block) {
  constexpr char16_t kNoWidth = 0x200B;
  if (!IsBlankLineBelowTable(block)) return;
  cursor.setPosition(block.position());
  cursor.insertText(QString(QChar(kNoWidth)));
}

}  // namespace

void PrepareForPaper(QTextDocument& copy, int dotsPerInch) {
  const double scale = static_cast<double>(dotsPerInch) / kPixelsPerInch;
  QTextCursor cursor(&copy);
  cursor.beginEditBlock();
  for (QTextBlock block = copy.lastBlock(); block.isValid(); block = block.previous()) {
    RemoveHidden(cursor, block);
    JoinRightToLeft(cursor, block);
    SpellOutSmallCapitals(cursor, block, copy.defaultFont());
    ScaleIndents(cursor, block, scale);
    ShowBelowTable(cursor, block);
  }
  cursor.endEditBlock();
}

}  // namespace snipdeck

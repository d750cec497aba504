#include "editor/caret_text.h"

#include <algorithm>

#include <QTextBoundaryFinder>
#include <QTextDocument>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

/// The longest character that is looked for, in code units.
constexpr int kReach = 32;

QString TextBetween(const QTextDocument& document, int begin, int end) {
  QString text;
  for (int position = begin; position < end; ++position) text += document.characterAt(position);
  return text;
}

}  // namespace

char16_t CharacterBeforeCaret(const RichTextControl& control) {
  const int caret = control.SelStart();
  if (caret == 0) return 0;
  const QChar before = control.document()->characterAt(caret - 1);
  const bool endsParagraph =
      before == QChar::ParagraphSeparator || before == QChar::LineSeparator || before.isNonCharacter();
  return endsParagraph ? u'\n' : before.unicode();
}

NeighbourLengths CharactersAround(const RichTextControl& control, int position) {
  const QTextDocument& document = *control.document();
  const int begin = std::max(0, position - kReach);
  const int end = std::min(document.characterCount() - 1, position + kReach);
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, TextBetween(document, begin, end));
  NeighbourLengths lengths;
  finder.setPosition(position - begin);
  if (finder.toPreviousBoundary() >= 0) lengths.before = position - begin - static_cast<int>(finder.position());
  finder.setPosition(position - begin);
  if (finder.toNextBoundary() >= 0) lengths.behind = static_cast<int>(finder.position()) - (position - begin);
  return lengths;
}

}  // namespace snipdeck

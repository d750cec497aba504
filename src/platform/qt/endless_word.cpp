#include "platform/qt/endless_word.h"

namespace snipdeck {

namespace {

bool MayBreakAt(QChar c) {
  // Beyond the alphabets, in Chinese for one, lines are broken between any two characters.
  constexpr char16_t kFirstIdeographicBlock = 0x2E80;
  return c.isSpace() || c == u'-' || c == QChar::ObjectReplacementCharacter || c.unicode() >= kFirstIdeographicBlock;
}

}  // namespace

bool HasEndlessWord(QStringView text) {
  qsizetype position = kEndlessWord - 1;
  qsizetype runStart = 0;
  // Looks backwards from where a run would be long enough, so that ordinary text is looked at in a few places only.
  while (position < text.size()) {
    qsizetype at = position;
    while (at >= runStart && !MayBreakAt(text[at])) --at;
    if (at < runStart) return true;
    runStart = at + 1;
    position = at + kEndlessWord;
  }
  return false;
}

}  // namespace snipdeck

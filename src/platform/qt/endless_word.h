#pragma once

#include <QStringView>

namespace snipdeck {

/// Characters without a place to break a line from which on a word counts as endless: encoded data, not writing. Looking for
/// breaks between words, Qt takes about 30 microseconds a character for such a text, and 1 for others.
inline constexpr qsizetype kEndlessWord = 5000;

/// True if the text has a run of at least kEndlessWord characters in which no line can be broken between words.
bool HasEndlessWord(QStringView text);

}  // namespace snipdeck

#pragma once

#include <QColor>
#include <QString>
#include <QTextFormat>

#include "richtext/format_properties.h"

namespace snipdeck {

/// The words of the format for what Qt counts, and back. Unknown words give the plainest value.

struct DocxUnderline {
  QTextCharFormat::UnderlineStyle style;
  UnderlineKind kind;  ///< Single where Qt's style says all.
};
DocxUnderline UnderlineFromWord(const QString& word);
const char* WordForUnderline(const QTextCharFormat& format);

QTextFrameFormat::BorderStyle BorderFromWord(const QString& word);
const char* WordForBorder(QTextFrameFormat::BorderStyle style);

/// One of the sixteen colours of a highlighter; invalid for "none" and unknown ones.
QColor HighlightFromWord(const QString& word);
/// Null where the colour is none of the sixteen.
const char* WordForHighlight(QRgb colour);

/// Six digits; invalid for "auto".
QColor ColourFromWord(const QString& word);
QString WordForColour(const QColor& colour);

/// What leads to a tab stop; null for none.
QChar LeaderFromWord(const QString& word);
const char* WordForLeader(QChar leader);

/// Kinds of numbers, as FormatListNumber counts them.
int NumberFormatFromWord(const QString& word);
const char* WordForNumberFormat(QTextListFormat::Style style);

}  // namespace snipdeck

#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextListFormat>

namespace snipdeck {

/// A label in pieces: text, and places for the number of a level.
struct LabelPiece {
  QString text;
  int level = -1;  ///< -1 for text
};

bool IsBullet(const QTextListFormat& format);
/// The bullet of a style; that of a disc for a style of numbers.
QString BulletOf(QTextListFormat::Style style);
/// `number` in a style of numbers, as "iv", "d" or "bb"; in digits where the style has no sign for it.
QString ListNumber(int number, QTextListFormat::Style style);

/// What shows in front of a paragraph: a label of its own, else the bullet or the number of its list; empty outside of
/// lists.
QString ListLabel(const QTextBlock& block);

/// Qt counts every list from 1, and knows no label but a number between two texts. The label of a paragraph with such a
/// format Qt leaves to us to draw (paragraph_marks.h).
void TakeLabelFromQt(QTextBlockFormat& format);
bool IsLabelTakenFromQt(const QTextBlock& block);

/// How the labels of a level are made: from the label that one of them shows, where there is one ("1.b.iv)" on the third
/// level names the numbers of three levels), else from the list's format. At most 50 characters of text.
QList<LabelPiece> PiecesOfLabel(const QTextListFormat& format, const QString& label, int level);

}  // namespace snipdeck

#pragma once

#include <QList>
#include <QTextListFormat>

namespace snipdeck {

/// A label in pieces: text, and places for the number of a level.
struct LabelPiece {
  QString text;
  int level = -1;  ///< -1 for text
};

bool IsBullet(const QTextListFormat& format);

/// How the labels of a level are made: from the label that one of them shows, where there is one ("1.b.iv)" on the third
/// level names the numbers of three levels), else from the list's format. At most 50 characters of text.
QList<LabelPiece> PiecesOfLabel(const QTextListFormat& format, const QString& label, int level);

}  // namespace snipdeck

#pragma once

#include <QFont>
#include <QStringList>
#include <QTextListFormat>
#include <QTextOption>

class QTextBlock;
class QTextBlockFormat;
class QTextCharFormat;

namespace snipdeck {

/// Qt's lengths are pixels of 1/96 inch; files count in twips.
int TwipsFromLength(double pixels);

/// The font families of a format, else those of `defaults`; never empty.
QStringList FontFamilies(const QTextCharFormat& format, const QFont& defaults);
/// Whether a format has a font size of its own.
bool HasPointSize(const QTextCharFormat& format);
/// The font size in points of a format, else that of `defaults`.
double PointSize(const QTextCharFormat& format, const QFont& defaults);

/// Qt measures the tab stops of a paragraph from where its first line begins, files from the margin: the distance
/// between the two in pixels. `steps` of `stepWidth` pixels is what the paragraph's list adds to its indent.
double TabOrigin(const QTextBlockFormat& format, int steps, double stepWidth);
QList<QTextOption::Tab> ShiftedTabs(QList<QTextOption::Tab> tabs, double pixels);

/// How many steps a paragraph is indented beside its margin: its own and those of its list.
int ListSteps(const QTextBlock& block);

/// Where a paragraph of a list stands: the depth from 0, and what tells its list from others.
struct ListPlace {
  int level = 0;
  int id = 0;  ///< 0 when the paragraph is in no list
};
ListPlace PlaceInList(const QTextBlock& block);

}  // namespace snipdeck

#pragma once

#include <QFont>
#include <QStringList>

class QTextCharFormat;

namespace snipdeck {

/// Qt's lengths are pixels of 1/96 inch; files count in twips.
int TwipsFromLength(double pixels);

/// The font families of a format, else those of `defaults`; never empty.
QStringList FontFamilies(const QTextCharFormat& format, const QFont& defaults);
/// The font size in points of a format, else that of `defaults`.
double PointSize(const QTextCharFormat& format, const QFont& defaults);

}  // namespace snipdeck

#pragma once

#include <QIcon>
#include <QString>

class QPainter;

namespace snipdeck {

/// Paints the program's own picture of that key into `target`, crisp at any size and scale. Its lines take the colour
/// `ink`, so that they stand out from whatever is behind; its coloured parts keep their colours. An unknown key paints
/// nothing. Given the colour behind as `ground`, coloured parts that would vanish on it turn towards the ink.
void PaintDrawnIcon(QPainter& painter, const QString& key, const QRect& target, const QColor& ink,
                    const QColor& ground = {});

/// The same picture as an icon of any size, greyed out where the icon is disabled.
QIcon DrawnIcon(const QString& key, const QColor& ink);

}  // namespace snipdeck

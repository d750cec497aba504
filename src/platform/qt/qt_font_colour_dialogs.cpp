#include "platform/qt/qt_font_colour_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>

namespace snipdeck {

namespace {

QFont FontFrom(const FontChoice& choice) {
  QFont font = QApplication::font();
  if (!choice.name.isEmpty()) font.setFamily(choice.name);
  if (choice.points > 0) font.setPointSizeF(choice.points);
  font.setBold(choice.bold);
  return font;
}

}  // namespace

std::optional<FontChoice> QtFontColourDialogs::ChooseFont(const FontChoice& preset) {
  QFontDialog dialog(FontFrom(preset), QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return preset;
  const QFont font = dialog.selectedFont();
  return FontChoice{font.family(), font.pointSizeF(), font.bold()};
}

// Qt's dialog always shows the part in which colours are mixed.
OleColour QtFontColourDialogs::PickColour(OleColour start, bool /*openFull*/) {
  for (int slot = 0; slot < QColorDialog::customCount(); ++slot) QColorDialog::setCustomColor(slot, Qt::black);
  QColorDialog dialog(QApplication::activeWindow());
  if (start != kNoColour) dialog.setCurrentColor(ColourFromOle(start));
  if (dialog.exec() != QDialog::Accepted) return kNoColour;
  const QColor colour = dialog.selectedColor();
  return OleFromRgb(colour.red(), colour.green(), colour.blue());
}

}  // namespace snipdeck

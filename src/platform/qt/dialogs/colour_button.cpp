#include "platform/qt/dialogs/colour_button.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace snipdeck {

namespace {

constexpr int kSwatch = 16;  // pixels

struct NamedColour {
  QRgb rgb;
  const char* name;
};
constexpr NamedColour kColours[] = {
    {0x000000, "Black"},      {0x404040, "Dark grey"}, {0x808080, "Grey"},       {0xC0C0C0, "Light grey"},
    {0xFFFFFF, "White"},      {0x800000, "Dark red"},  {0xE00000, "Red"},        {0xF08000, "Orange"},
    {0xFFC000, "Gold"},       {0xFFFF00, "Yellow"},    {0x004000, "Dark green"}, {0x008000, "Green"},
    {0x60C000, "Leaf green"}, {0x008080, "Teal"},      {0x00C0C0, "Turquoise"},  {0x000080, "Dark blue"},
    {0x0000E0, "Blue"},       {0x3080F0, "Sky blue"},  {0x800080, "Purple"},     {0xE000A0, "Pink"}};

QIcon Swatch(const QColor& colour, const QColor& edge) {
  QPixmap picture(kSwatch * 2, kSwatch * 2);
  picture.setDevicePixelRatio(2);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(edge);
  if (colour.isValid()) painter.setBrush(colour);
  painter.drawRect(QRectF(0.5, 0.5, kSwatch - 1, kSwatch - 1));
  return picture;
}

QString NameOf(const QColor& colour) {
  for (const NamedColour& known : kColours)
    if (QColor(known.rgb) == colour) return ColourButton::tr(known.name);
  return colour.name();
}

}  // namespace

ColourButton::ColourButton(const QString& noneCaption, const QString& accessibleName, QWidget* parent)
    : QToolButton(parent), m_noneCaption(noneCaption) {
  setAccessibleName(accessibleName);
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setPopupMode(QToolButton::InstantPopup);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
  setMinimumWidth(fontMetrics().horizontalAdvance(tr("Turquoise")) * 2);
  FillMenu(noneCaption);
  SetColour(QColor());
}

void ColourButton::FillMenu(const QString& noneCaption) {
  auto* const choices = new QMenu(this);
  choices->addAction(noneCaption, this, [this] { Choose(QColor()); });
  AddColours(*choices);
  choices->addAction(tr("&Other colour..."), this, &ColourButton::ChooseOther);
  setMenu(choices);
}

// One entry a colour, so that arrow keys and first letters find them.
void ColourButton::AddColours(QMenu& menu) {
  menu.addSeparator();
  for (const NamedColour& known : kColours) {
    menu.addAction(Swatch(QColor(known.rgb), palette().color(QPalette::Mid)), tr(known.name), this,
                   [this, rgb = known.rgb] { Choose(QColor(rgb)); });
  }
  menu.addSeparator();
}

void ColourButton::SetColour(std::optional<QColor> colour) {
  m_colour = std::move(colour);
  const bool hasColour = m_colour && m_colour->isValid();
  setIcon(Swatch(hasColour ? *m_colour : QColor(), palette().color(QPalette::Mid)));
  setText(!m_colour ? QString() : hasColour ? NameOf(*m_colour) : m_noneCaption);
}

void ColourButton::Choose(const QColor& colour) {
  SetColour(colour);
  emit ColourChosen();
}

void ColourButton::ChooseOther() {
  const QColor start = m_colour && m_colour->isValid() ? *m_colour : QColor(Qt::black);
  const QColor chosen = QColorDialog::getColor(start, this, accessibleName());
  if (chosen.isValid()) Choose(chosen);
}

}  // namespace snipdeck

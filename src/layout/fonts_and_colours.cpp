#include "layout/fonts_and_colours.h"

#include <cmath>

#include "layout/control_font.h"
#include "layout/system_colours.h"
#include "layout/window_colour.h"

namespace snipdeck {

namespace {

constexpr std::int16_t kUsed = 1;
constexpr std::int16_t kBold = -1;

}  // namespace

FontsAndColours::FontsAndColours(QWidget& mainWindow, Settings& settings, FontColourDialogs& dialogs,
                                 MessageBox& messages)
    : m_mainWindow(mainWindow), m_settings(settings), m_dialogs(dialogs), m_messages(messages) {}

OleColour FontsAndColours::ChooseColour(bool openFull, OleColour current) {
  return m_dialogs.PickColour(TranslateColour(current, m_mainWindow.palette()).value_or(kNoColour), openFull);
}

void FontsAndColours::ChooseButtonColour() {
  m_settings.buttonColour = ChooseColour(true, m_settings.buttonColour);
  if (m_settings.buttonColour != kNoColour) ApplyButtonColour();
}

void FontsAndColours::ChooseControlFont() {
  const auto chosen = m_dialogs.ChooseFont(
      {m_settings.controlFontName, static_cast<double>(m_settings.controlFontSize), m_settings.controlFontBold != 0});
  if (!chosen) return;
  m_settings.controlFontName = chosen->name;
  m_settings.controlFontSize = static_cast<std::int16_t>(std::nearbyint(chosen->points));
  m_settings.controlFontBold = chosen->bold ? kBold : 0;
  const QString current = m_settings.useControlFonts == kUsed ? QStringLiteral("YES") : QStringLiteral("NO");
  const MessageAnswer answer =
      m_messages.Show({.text = QStringLiteral("Use custom font for controls?\r\n\r\nCurrent value: ") + current,
                       .icon = MessageIcon::Question,
                       .buttons = MessageButtons::YesNo});
  m_settings.useControlFonts = answer == MessageAnswer::Yes ? kUsed : 0;
}

void FontsAndColours::ApplyButtonColour() {
  if (m_settings.buttonColour == kNoColour) return;
  if (const auto colour = TranslateColour(m_settings.buttonColour, m_mainWindow.palette()))
    ColourWindow(m_mainWindow, ColourFromOle(*colour));
}

void FontsAndColours::ApplyControlFont(QWidget& window) {
  if (m_settings.useControlFonts != kUsed) return;
  SetControlFont(window, {m_settings.controlFontName, static_cast<double>(m_settings.controlFontSize),
                          m_settings.controlFontBold != 0});
}

}  // namespace snipdeck

#pragma once

#include <QWidget>

#include "platform/font_colour_dialogs.h"
#include "platform/message_box.h"
#include "platform/settings.h"

namespace snipdeck {

/// The button colour and the control font: how the user chooses them, and how they come to the windows.
class FontsAndColours {
 public:
  /// All of them outlive this. The settings are read and changed at once.
  FontsAndColours(QWidget& mainWindow, Settings& settings, FontColourDialogs& dialogs, MessageBox& messages);

  /// Lets the user choose a colour, beginning with `current`, which may be one of the system's. kNoColour when the user
  /// cancels.
  OleColour ChooseColour(bool openFull, OleColour current);
  /// "Button colour": the choice is kept, also that of no colour, and a colour is shown at once.
  void ChooseButtonColour();
  /// "Control font": what was chosen shows when a window next applies its control font.
  void ChooseControlFont();
  /// Gives the main window's background, its buttons but the one that ends the program, and the label "Format" the
  /// button colour. Texts on it become black or white. Nothing happens while no colour is chosen.
  void ApplyButtonColour();
  /// Gives the controls of one window the control font, if it is used. Texts, grids and menus keep their own.
  void ApplyControlFont(QWidget& window);

 private:
  QWidget& m_mainWindow;
  Settings& m_settings;
  FontColourDialogs& m_dialogs;
  MessageBox& m_messages;
};

}  // namespace snipdeck

#pragma once

#include <array>
#include <cstddef>
#include <variant>

#include "platform/settings.h"

namespace snipdeck {

/// Where a line of the settings file lies among the values, and thereby of which type it is.
using SettingValue = std::variant<std::int16_t Settings::*, std::int32_t Settings::*, QString Settings::*>;

struct SettingLine {
  /// From 1; the only thing by which the file knows a value.
  int line;
  const char* meaning;
  SettingValue value;
};

inline constexpr std::array<SettingLine, 42> kSettingLines = {{
    {1, "main window Top", &Settings::mainTop},
    {2, "main window Left", &Settings::mainLeft},
    {3, "main window Width", &Settings::mainWidth},
    {4, "main window Height", &Settings::mainHeight},
    {5, "kept", &Settings::kept5},
    {6, "storage folder", &Settings::storageFolder},
    {7, "kept", &Settings::kept7},
    {8, "kept", &Settings::kept8},
    {9, "kept", &Settings::kept9},
    {10, "kept", &Settings::kept10},
    {11, "view-and-paste window Top", &Settings::pasteTop},
    {12, "view-and-paste window Left", &Settings::pasteLeft},
    {13, "view-and-paste window Width", &Settings::pasteWidth},
    {14, "view-and-paste window Height", &Settings::pasteHeight},
    {15, "file shown in the cumulative box", &Settings::contentsFileName},
    {16, "window preset index", &Settings::windowPreset},
    {17, "window percent index", &Settings::windowPercent},
    {18, "button colour", &Settings::buttonColour},
    {19, "control font name", &Settings::controlFontName},
    {20, "control font size", &Settings::controlFontSize},
    {21, "control font bold", &Settings::controlFontBold},
    {22, "use control fonts", &Settings::useControlFonts},
    {23, "large view zoom", &Settings::largeViewZoom},
    {24, "custom browser", &Settings::customBrowser},
    {25, "sidebar width step", &Settings::sidebarWidthStep},
    {26, "sidebar shown", &Settings::sidebarShown},
    {27, "topical notes file", &Settings::topicalNotesFile},
    {28, "editor window Left", &Settings::editorLeft},
    {29, "editor window Top", &Settings::editorTop},
    {30, "editor window Width", &Settings::editorWidth},
    {31, "editor window Height", &Settings::editorHeight},
    {32, "message box decision option", &Settings::messageBoxDecision},
    {33, "message box window Width", &Settings::messageBoxWidth},
    {34, "sidebar font name", &Settings::sidebarFontName},
    {35, "sidebar font size", &Settings::sidebarFontSize},
    {36, "sidebar font bold", &Settings::sidebarFontBold},
    {37, "start with the cumulative box", &Settings::startWithCumulative},
    {38, "load the last file at start", &Settings::loadLastFile},
    {39, "show-clipboard window Left", &Settings::clipboardLeft},
    {40, "show-clipboard window Top", &Settings::clipboardTop},
    {41, "show-clipboard window Width", &Settings::clipboardWidth},
    {42, "show-clipboard window Height", &Settings::clipboardHeight},
}};

inline constexpr bool SettingLinesAreInOrder() {
  for (std::size_t i = 0; i < kSettingLines.size(); ++i) {
    if (kSettingLines[i].line != static_cast<int>(i) + 1) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (kSettingLines[j].value == kSettingLines[i].value) return false;
    }
  }
  return true;
}
static_assert(SettingLinesAreInOrder(), "every line once, in its order, and every value once");

}  // namespace snipdeck

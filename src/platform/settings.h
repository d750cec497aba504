#pragma once

#include <cstdint>

#include <QString>

namespace snipdeck {

/// The settings of all windows: one set of values for the whole run, of which each window reads and changes its own.
/// Measures are in twips, font sizes in points. A value that no file has supplied is 0 or empty.
struct Settings {
  std::int32_t mainTop = 0;
  std::int32_t mainLeft = 0;
  std::int32_t mainWidth = 0;
  std::int32_t mainHeight = 0;
  /// Values that are kept for whoever wrote them, and used nowhere.
  std::int16_t kept5 = 0;
  std::int32_t kept7 = 0;
  std::int32_t kept8 = 0;
  std::int32_t kept9 = 0;
  std::int32_t kept10 = 0;
  /// Folder of the box files.
  QString storageFolder;
  std::int32_t pasteTop = 0;
  std::int32_t pasteLeft = 0;
  std::int32_t pasteWidth = 0;
  std::int32_t pasteHeight = 0;
  /// File shown in the cumulative box.
  QString contentsFileName;
  /// Last chosen entry of the list of placements, 0 to 6, and of the list of percentages, 0 to 7.
  std::int16_t windowPreset = 0;
  std::int16_t windowPercent = 0;
  /// OLE colour; -1 where none was chosen.
  std::int32_t buttonColour = 0;
  QString controlFontName;
  std::int16_t controlFontSize = 0;
  /// -1 bold, 0 not bold.
  std::int16_t controlFontBold = 0;
  /// 1: the control font is used.
  std::int16_t useControlFonts = 0;
  /// Percent.
  std::int16_t largeViewZoom = 0;
  /// Path of the browser that the user prefers.
  QString customBrowser;
  /// 0 to 7.
  std::int16_t sidebarWidthStep = 0;
  /// 1 shown, 0 hidden.
  std::int16_t sidebarShown = 0;
  QString topicalNotesFile;
  std::int32_t editorLeft = 0;
  std::int32_t editorTop = 0;
  std::int32_t editorWidth = 0;
  std::int32_t editorHeight = 0;
  std::int16_t messageBoxDecision = 0;
  std::int32_t messageBoxWidth = 0;
  QString sidebarFontName;
  std::int16_t sidebarFontSize = 0;
  /// -1 bold, 0 not bold.
  std::int16_t sidebarFontBold = 0;
  /// 1: the program opens on the cumulative box, and captures also while a box is enlarged.
  std::int16_t startWithCumulative = 0;
  /// 1: the file shown in the cumulative box is loaded at start.
  std::int16_t loadLastFile = 0;
  std::int32_t clipboardLeft = 0;
  std::int32_t clipboardTop = 0;
  std::int32_t clipboardWidth = 0;
  std::int32_t clipboardHeight = 0;

  bool operator==(const Settings&) const = default;
};

}  // namespace snipdeck

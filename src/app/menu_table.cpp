#include "app/menu_table.h"

#include "app/frm_snipdeck.h"

namespace snipdeck {

namespace {

using F = frmSnipdeck;

constexpr Command kFileEntries[] = {
    {"mnuLoadBoxes",
     "&Load previous contents",
     "Ctrl+L",
     "edit-paste-5",
     &F::mnuLoadBoxes_Click,
     {8, "cmdLoadPrevious", "Load previous contents of boxes"}},
    {"mnuSaveTextBoxes",
     "&Save all text boxes",
     "Ctrl+S",
     "_SaveAs_32x32",
     &F::mnuSaveTextBoxes_Click,
     {9, "cmdAutosaveTextBoxes", "Autosave contents of text boxes"}},
    {"mnuSaveAs",
     "Save current &box",
     "Ctrl+B",
     "_SaveAs_32x32-green",
     &F::mnuSaveAs_Click,
     {10, "cmdSaveAs", "Save contents of current text box"}},
    {"mnuAppend",
     "Appen&d box text to file",
     "Ctrl+D",
     "append",
     &F::mnuAppend_Click,
     {11, "cmdAppend", "Append text to disk file"}},
    {"mnuFolder", "Set default &folder", "Ctrl+F11", nullptr, &F::mnuFolder_Click},
    {},
    {"mnuIntoClipboard", "&Get file for cumulative clipboard", "Ctrl+G", nullptr, &F::mnuIntoClipboard_Click},
    {"mnuSaveText",
     "Save cumulative clipboard &text",
     "Ctrl+T",
     "save-cumulative",
     &F::mnuSaveText_Click,
     {12, "cmdSaveText", "Save cumulative clipboard text to file"}},
    {},
    {"mnuExit", "E&xit", "", "Exit_32x32", &F::mnuExit_Click, {0, "cmdExit", "Exit program"}},
};

constexpr Command kEditEntries[] = {
    {"mnuAllInOne",
     "&All boxes in one",
     "F12",
     "all-in-one",
     &F::mnuAllInOne_Click,
     {16, "cmdAllInOne", "Contents of all boxes in one text window"}},
    {"mnuCopyOneBox",
     "&Copy one box contents",
     "Ctrl+F12",
     "copy-box",
     &F::mnuCopyOneBox_Click,
     {17, "cmdCopyOneBox", "Copy one box contents to Windows clipboard"}},
    {},
    {"mnuCumulative", "&View cumulative clipboard", "Ctrl+Y", "My docs 32", &F::mnuCumulative_Click},
    {"mnuViewBoxLarge",
     "&Toggle full screen",
     "F5",
     "Monitor_(blue)",
     &F::mnuViewBoxLarge_Click,
     {15, "cmdViewBoxLarge", "Toggle full screen for box contents"}},
    {"mnuClipStyles",
     "&Windows clipboard",
     "F6",
     "Paste",
     &F::mnuClipStyles_Click,
     {3, "cmdClip", "Show Windows clipboard"}},
    {},
    {"mnuEmpty", "Empt&y all boxes", "Ctrl+M", nullptr, &F::mnuEmpty_Click},
};

constexpr Command kViewEntries[] = {
    {"mnuShowAllTypes",
     "Show &all clipboard types",
     "F11",
     "clipboard-types",
     &F::mnuShowAllTypes_Click,
     {4, "cmdAllTypes", "View all clipboard types"}},
    {},
    {"mnuView_SideBar",
     "&Show sidebar",
     "F7",
     "sidebar",
     &F::mnuView_SideBar_Click,
     {13, "cmdToggleSideBar", "Toggle display of sidebar"}},
    {"mnuViewSideBarWidth", "Sidebar &width", "Shift+F7", nullptr, &F::mnuViewSideBarWidth_Click},
    {},
    {"mnuScreenSize",
     "Window si&ze",
     "Ctrl+Shift+F2",
     "window-size",
     &F::mnuScreenSize_Click,
     {2, "cmdScreenSize", "Determine window size"}},
    {"mnuContrlFont", "&Control font", "", nullptr, &F::mnuContrlFont_Click},
    {"mnuButtonColour", "&Button colour", "", nullptr, &F::mnuButtonColour_Click},
};

constexpr Command kMiscEntries[] = {
    {"mnuTopicalNotes", "&Topical notes", "F1", "Writer", &F::mnuTopicalNotes_Click},
    {"mnuNewTextFile", "&New text file", "Ctrl+N", nullptr, &F::mnuNewTextFile_Click},
    {},
    {"mnuHelp", "Brief &help", "Shift+F1", nullptr, &F::mnuHelp_Click},
    {"mnuSettings", "&Settings", "F3", "settings", &F::mnuSettings_Click, {14, "cmdSettings", "Determine program settings"}},
    {},
    {"mnuTrawler",
     "&Mini Trawler",
     "Ctrl+F1",
     "Trawler_32x32",
     &F::mnuTrawler_Click,
     {7, "cmdTrawler", "Load File Trawler"}},
    {"mnuExplorer",
     "E&xplorer",
     "Ctrl+Shift+F9",
     "Explorer_32x32",
     &F::mnuExplorer_Click,
     {6, "cmdExplorer", "Load Windows Explorer"}},
    {"mnuView_Jotter",
     "Text &editor",
     "Ctrl+E",
     "jotter",
     &F::mnuView_Jotter_Click,
     {5, "cmdJotter", "Load jotter utility"}},
};

constexpr Menu kMenus[] = {
    {"mnuFile", "&File", kFileEntries},
    {"mnuEdit", "&Edit", kEditEntries},
    {"mnuView", "&View", kViewEntries},
    {"mnuMisc", "&Misc", kMiscEntries},
};

constexpr Command kButtonCommands[] = {
    {nullptr, nullptr, "", "Desktop_32x32", &F::cmdDesktop_Click, {1, "cmdDesktop", "Show desktop"}},
};

/// A row runs what a menu entry runs, or a handler of its own.
struct RowCommand {
  std::string_view entry;
  CommandHandler own = nullptr;
};

constexpr RowCommand kRowCommands[] = {
    {"mnuLoadBoxes"},
    {"mnuViewBoxLarge"},
    {"mnuCumulative"},
    {"mnuSaveTextBoxes"},
    {"mnuSaveAs"},
    {"mnuClipStyles"},
    {"", &F::TrawlerRow_Click},
    {"", &F::ExplorerRow_Click},
    {"", &F::BrowserRow_Click},
    {"mnuTopicalNotes"},
    {"mnuSettings"},
    {"", &F::cmdDesktop_Click},
    {"mnuExit"},
};

}  // namespace

std::span<const Menu> MainMenus() {
  return kMenus;
}

std::span<const Command> ButtonCommands() {
  return kButtonCommands;
}

CommandHandler EntryCommand(std::string_view name) {
  for (const Menu& menu : kMenus) {
    for (const Command& command : menu.entries) {
      if (command.entry && command.entry == name) return command.handler;
    }
  }
  return nullptr;
}

CommandHandler SidebarCommand(int row) {
  if (row < 1 || row > static_cast<int>(std::size(kRowCommands))) return nullptr;
  const RowCommand& command = kRowCommands[row - 1];
  return command.own ? command.own : EntryCommand(command.entry);
}

}  // namespace snipdeck

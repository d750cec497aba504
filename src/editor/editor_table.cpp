#include "editor/editor_table.h"

#include "editor/frm_rtf_htm.h"

namespace snipdeck {

namespace {

using F = frm_RTF_HTM;

constexpr EditorEntry kFileEntries[] = {
    {"mnuOpenFile", "&Open file", "Ctrl+O", "open-file", &F::mnuOpenFile_Click},
    {"mnuNewFile", "&New file", "Ctrl+N", "new-file", &F::mnuNewFile_Click},
    {"mnuSave", "&Save    ( Ctrl-F12 )", "Ctrl+S", "_SaveAs_32x32", &F::mnuSave_Click},
    {"mnuSaveAs", "Sa&ve as    ( Ctrl-Shift-S; F10 )", "", "save-as", &F::mnuSaveAs_Click},
    {"mnuFile_Explorer", "&Windows Explorer", "Ctrl+Shift+F9", "Explorer_32x32", &F::mnuFile_Explorer_Click},
    {"mnuFile_Print", "&Print text", "Ctrl+P", "print", &F::mnuFile_Print_Click},
    {"mnuExit", "E&xit    ( Alt-F4 )", "", "Exit_32x32", &F::mnuExit_Click},
};

constexpr EditorEntry kEditEntries[] = {
    {"mnuEdit_Find", "&Find", "Ctrl+F", "find", &F::mnuEdit_Find_Click},
    {"mnuEdit_Replace", "&Replace", "Ctrl+R", nullptr, &F::mnuEdit_Replace_Click},
    {},
    {"mnuEdit_AllFonts", "&All fonts    ( Ctrl-0 )", "", "font", &F::mnuEdit_AllFonts_Click},
    {},
    {"mnuEdit_FormatInsert", "&Insert table    ( Ctrl-Shift-3 )", "", nullptr, &F::mnuEdit_FormatInsert_Click},
    {"mnuEdit_FormatTable", "Format &table    ( Ctrl-8 )", "", nullptr, &F::mnuEdit_FormatTable_Click},
    {"mnuEdit_TextBox", "Text bo&x    ( Ctrl-Shift-B )", "", nullptr, &F::mnuEdit_TextBox_Click},
    {},
    {"mnuEdit_Paragraph", "Paragraph &settings    (Ctrl-4 )", "", "paragraph", &F::mnuEdit_Paragraph_Click},
    {"mnuEdit_Bullets", "&Bullets / numbering", "Ctrl+F5", nullptr, &F::mnuEdit_Bullets_Click},
};

constexpr EditorEntry kViewEntries[] = {
    {"mnuCentreOnScreen", "&Centre on screen", "Ctrl+F2", "centre-window", &F::mnuCentreOnScreen_Click},
    {"mnuView_PageSettings", "&Page settings    ( Ctrl-7 )", "", "page-settings", &F::mnuView_PageSettings_Click},
    {},
    {"mnuView_Formatting", "&Formatting    ( Ctrl-F3 )", "", nullptr, &F::mnuView_Formatting_Click},
    {"mnuView_PageView", "&View mode  ( Alt-F3 )", "", "view-mode", &F::mnuView_PageView_Click},
};

constexpr EditorMenu kMenus[] = {
    {"mnuFile", "&File", kFileEntries},
    {"mnuEdit", "&Edit", kEditEntries},
    {"mnuView", "&View", kViewEntries},
};

constexpr EditorButton kButtons[] = {
    {"cmdExitProg", 100, 30, "Exit program", "Exit_32x32", &F::mnuExit_Click},
    {"cmdCentreOnScreen", 700, 36, "Centre window on screen", "centre-window", &F::mnuCentreOnScreen_Click},
    {"cmdFileNewButton", 1230, 36, "New file", "new-file", &F::mnuNewFile_Click},
    {"cmdOpenFile", 1770, 30, "Open file", "open-file", &F::mnuOpenFile_Click},
    {"cmdFileSaveButton", 2310, 30, "Save current text", "_SaveAs_32x32", &F::mnuSave_Click},
    {"cmdSaveAs", 2850, 30, "Save file as...", "save-as", &F::mnuSaveAs_Click},
    {"cmdPrint", 3390, 30, "Print text", "print", &F::mnuFile_Print_Click},
    {"cmdFind", 3930, 36, "Find string", "find", &F::mnuEdit_Find_Click},
    {"cmdFont", 4470, 30, "Select font", "font", &F::mnuEdit_AllFonts_Click},
    {"cmdCopyButton", 5010, 30, "Copy selected text", "copy-text", &F::cmdCopyButton_Click},
    {"cmdCutButton", 5550, 30, "Move selected text", "cut-text", &F::cmdCutButton_Click},
    {"cmdPasteButton", 6090, 30, "Paste selected text", "Paste", &F::cmdPasteButton_Click},
    {"cmdParagraph", 6630, 30, "Paragraph settings", "paragraph", &F::mnuEdit_Paragraph_Click},
    {"cmdPage", 7170, 30, "Page settings", "page-settings", &F::mnuView_PageSettings_Click},
    {"cmdViewMode", 7710, 30, "View mode", "view-mode", &F::mnuView_PageView_Click},
    {"cmdExplorer", 8265, 30, "Windows Explorer", "Explorer_32x32", &F::mnuFile_Explorer_Click},
};

}  // namespace

std::span<const EditorMenu> EditorMenus() {
  return kMenus;
}

std::span<const EditorButton> EditorButtons() {
  return kButtons;
}

}  // namespace snipdeck

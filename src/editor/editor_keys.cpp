#include "editor/editor_keys.h"

#include "editor/frm_rtf_htm.h"

namespace snipdeck {

namespace {

using F = frm_RTF_HTM;

// A shift state is the sum of these.
constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;
constexpr int kAny = -1;

struct KeyRow {
  int key;
  int shiftState;
  EditorHandler handler;
};

// In the order in which they are tried.
constexpr KeyRow kRows[] = {
    {Qt::Key_F12, kCtrl, &F::mnuSave_Click},
    {Qt::Key_S, kCtrl + kShift, &F::mnuSaveAs_Click},
    {Qt::Key_F10, kAny, &F::mnuSaveAs_Click},
    {Qt::Key_X, kCtrl, &F::cmdCutButton_Click},
    {Qt::Key_V, kCtrl, &F::cmdPasteButton_Click},
    {Qt::Key_C, kCtrl, &F::cmdCopyButton_Click},
    {Qt::Key_0, kCtrl, &F::mnuEdit_AllFonts_Click},
    {Qt::Key_4, kCtrl, &F::mnuEdit_Paragraph_Click},
    {Qt::Key_7, kCtrl, &F::mnuView_PageSettings_Click},
    {Qt::Key_8, kCtrl, &F::mnuEdit_FormatTable_Click},
    {Qt::Key_B, kCtrl + kShift, &F::mnuEdit_TextBox_Click},
    {Qt::Key_F3, kCtrl, &F::mnuView_Formatting_Click},
    {Qt::Key_F3, kAlt, &F::mnuView_PageView_Click},
    {Qt::Key_S, kAlt, &F::SwapCharacters},
    {Qt::Key_A, kCtrl, &F::SelectAll},
    {Qt::Key_B, kAlt, &F::ToggleBold},
    {Qt::Key_B, kCtrl + kShift, &F::ToggleBold},
    {Qt::Key_U, kAlt, &F::ToggleUnderline},
    {Qt::Key_U, kCtrl + kShift, &F::ToggleUnderline},
    {Qt::Key_I, kAlt, &F::ToggleItalic},
    {Qt::Key_I, kCtrl + kShift, &F::ToggleItalic},
    {Qt::Key_Home, kCtrl + kShift, &F::PlainCharacters},
    {Qt::Key_D, kCtrl + kAlt, &F::GotoDesktop},
    {Qt::Key_X, kCtrl + kAlt, &F::mnuFile_Explorer_Click},
    {Qt::Key_F9, kCtrl + kShift, &F::mnuFile_Explorer_Click},
    {Qt::Key_F1, kCtrl, &F::StartMiniTrawler},
};

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? kShift : 0) + (modifiers & Qt::ControlModifier ? kCtrl : 0) +
         (modifiers & Qt::AltModifier ? kAlt : 0);
}

}  // namespace

EditorHandler CommandOfKey(const QKeyEvent& event) {
  const int shiftState = ShiftState(event.modifiers());
  for (const KeyRow& row : kRows) {
    if (row.key == event.key() && (row.shiftState == kAny || row.shiftState == shiftState)) return row.handler;
  }
  return nullptr;
}

}  // namespace snipdeck

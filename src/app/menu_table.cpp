#include "app/menu_table.h"

#include "app/frm_snipdeck.h"

namespace snipdeck {

namespace {

constexpr MenuEntry kFileEntries[] = {
    {"mnuSaveTextBoxes", "&Save all text boxes", "Ctrl+S", &frmSnipdeck::mnuSaveTextBoxes_Click},
    {},
    {"mnuExit", "E&xit", "", &frmSnipdeck::mnuExit_Click},
};

constexpr MenuEntry kEditEntries[] = {
    {"mnuCumulative", "&View cumulative clipboard", "Ctrl+Y", &frmSnipdeck::mnuCumulative_Click},
    {"mnuViewBoxLarge", "&Toggle full screen", "F5", &frmSnipdeck::mnuViewBoxLarge_Click},
};

constexpr Menu kMenus[] = {
    {"mnuFile", "&File", kFileEntries},
    {"mnuEdit", "&Edit", kEditEntries},
};

}  // namespace

std::span<const Menu> MainMenus() {
  return kMenus;
}

}  // namespace snipdeck

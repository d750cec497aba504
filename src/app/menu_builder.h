#pragma once

class QMenuBar;

namespace snipdeck {

class frmSnipdeck;

/// Fills the main window's menu bar from the table of commands.
void BuildMenus(frmSnipdeck& window, QMenuBar& bar);

}  // namespace snipdeck

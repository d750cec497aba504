#pragma once

#include <span>
#include <string_view>

namespace snipdeck {

class frmSnipdeck;

/// Runs a command of the main window.
using CommandHandler = void (frmSnipdeck::*)();

/// A button of the top row; without one, `name` is null.
struct TopRowButton {
  /// 0 is the exit button, 1 to 17 are the others from left to right.
  int place = 0;
  const char* name = nullptr;
  const char* toolTip = nullptr;
};

/// One command with the controls that run it: a menu entry, a button, or both. A command without a handler is shown and
/// greyed out. The empty command is a separator.
struct Command {
  /// Name of the menu entry; null where there is none.
  const char* entry = nullptr;
  const char* caption = nullptr;
  /// In Qt's portable text form; empty where the entry has no key.
  const char* shortcut = "";
  /// Key of the picture; null for none.
  const char* icon = nullptr;
  CommandHandler handler = nullptr;
  TopRowButton button = {};

  bool IsSeparator() const { return !entry && !button.name; }
};

struct Menu {
  const char* name;
  const char* caption;
  std::span<const Command> entries;
};

inline constexpr int kTopRowButtonCount = 18;

/// The main window's menus in their order.
std::span<const Menu> MainMenus();
/// Commands that have a button only.
std::span<const Command> ButtonCommands();
/// What the menu entry of that name runs; null where nothing does.
CommandHandler EntryCommand(std::string_view name);
/// What a row of the sidebar runs, 1 to 13; null where nothing does yet.
CommandHandler SidebarCommand(int row);

}  // namespace snipdeck

#pragma once

#include <span>

namespace snipdeck {

class frmSnipdeck;

/// One row of a menu: a command, or a separator where `name` is null.
struct MenuEntry {
  const char* name = nullptr;
  const char* caption = nullptr;
  /// In Qt's portable text form; empty where the entry has no key.
  const char* shortcut = "";
  void (frmSnipdeck::*handler)() = nullptr;
};

struct Menu {
  const char* name;
  const char* caption;
  std::span<const MenuEntry> entries;
};

/// The main window's menus in their order.
std::span<const Menu> MainMenus();

}  // namespace snipdeck

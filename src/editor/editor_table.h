#pragma once

#include <span>

namespace snipdeck {

class frm_RTF_HTM;

/// Runs a command of the editor.
using EditorHandler = void (frm_RTF_HTM::*)();

/// A menu entry; one without a name is a separator.
struct EditorEntry {
  const char* name = nullptr;
  const char* caption = nullptr;
  /// In Qt's portable text form; empty where the entry has no key of its own.
  const char* shortcut = "";
  /// Key of the picture; null for none.
  const char* icon = nullptr;
  EditorHandler handler = nullptr;
};

struct EditorMenu {
  const char* name;
  const char* caption;
  std::span<const EditorEntry> entries;
};

/// A button of the tool strip. `left` and `top` are in twips.
struct EditorButton {
  const char* name;
  double left;
  double top;
  const char* toolTip;
  const char* icon;
  EditorHandler handler;
};

std::span<const EditorMenu> EditorMenus();
/// From left to right; the first one is the wider exit button.
std::span<const EditorButton> EditorButtons();

}  // namespace snipdeck

#pragma once

#include <QKeyEvent>

#include "editor/editor_table.h"

namespace snipdeck {

/// The command of a key that is pressed in the editor's text, null for a key of the control's own. The shift state has
/// to agree exactly, except where a row takes any.
EditorHandler CommandOfKey(const QKeyEvent& event);

}  // namespace snipdeck

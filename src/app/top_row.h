#pragma once

#include <array>

#include "app/menu_table.h"

class QWidget;

namespace snipdeck {

class CommandButton;

/// The buttons of the top row from left to right.
using TopRow = std::array<CommandButton*, kTopRowButtonCount>;

/// Makes the buttons from the table of commands as children of `client`, puts them into their places, and lets Tab go
/// through them in this order.
TopRow BuildTopRow(frmSnipdeck& window, QWidget& client);

}  // namespace snipdeck

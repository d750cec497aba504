#include "app/top_row.h"

#include "app/frm_snipdeck.h"
#include "capture/text_panel.h"
#include "platform/qt/command_button.h"

namespace snipdeck {

namespace {

constexpr TwipRect kExitPlace{120, 60, 540, 400};
constexpr TwipRect kFirstPlace{720, 80, 460, 400};
constexpr double kStep = 480;

TwipRect PlaceOf(int place) {
  if (place == 0) return kExitPlace;
  TwipRect rect = kFirstPlace;
  rect.left += kStep * (place - 1);
  return rect;
}

CommandButton* MakeButton(frmSnipdeck& window, QWidget& client, const Command& command) {
  auto* button = new CommandButton(QString::fromLatin1(command.icon), frmSnipdeck::tr(command.button.toolTip), &client);
  button->setObjectName(command.button.name);
  button->setEnabled(command.handler);
  if (command.handler) QObject::connect(button, &CommandButton::clicked, &window, command.handler);
  ApplyRect(*button, PlaceOf(command.button.place));
  return button;
}

using ButtonOrder = std::array<const Command*, kTopRowButtonCount>;

void NoteButtons(std::span<const Command> commands, ButtonOrder& order) {
  for (const Command& command : commands) {
    if (command.button.name) order[static_cast<size_t>(command.button.place)] = &command;
  }
}

}  // namespace

TopRow BuildTopRow(frmSnipdeck& window, QWidget& client) {
  ButtonOrder order{};
  NoteButtons(ButtonCommands(), order);
  for (const Menu& menu : MainMenus()) NoteButtons(menu.entries, order);
  // Made from left to right: a screen reader tells the buttons in the order of their making.
  TopRow row{};
  for (size_t i = 0; i < row.size(); ++i) {
    row[i] = MakeButton(window, client, *order[i]);
    if (i > 0) QWidget::setTabOrder(row[i - 1], row[i]);
  }
  return row;
}

}  // namespace snipdeck

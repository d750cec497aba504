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

void AddButtons(frmSnipdeck& window, QWidget& client, std::span<const Command> commands, TopRow& row) {
  for (const Command& command : commands) {
    if (command.button.name) row[static_cast<size_t>(command.button.place)] = MakeButton(window, client, command);
  }
}

}  // namespace

TopRow BuildTopRow(frmSnipdeck& window, QWidget& client) {
  TopRow row{};
  AddButtons(window, client, ButtonCommands(), row);
  for (const Menu& menu : MainMenus()) AddButtons(window, client, menu.entries, row);
  for (size_t i = 1; i < row.size(); ++i) QWidget::setTabOrder(row[i - 1], row[i]);
  return row;
}

}  // namespace snipdeck

#include "app/menu_builder.h"

#include <QMenuBar>

#include "app/frm_snipdeck.h"
#include "app/menu_table.h"
#include "platform/menu_colours.h"
#include "platform/qt/drawn_icon.h"
#include "platform/qt/menu_style.h"

namespace snipdeck {

namespace {

void AddEntry(frmSnipdeck& window, QMenu& menu, const Command& command) {
  if (command.IsSeparator()) {
    menu.addSeparator();
    return;
  }
  QAction* action = menu.addAction(frmSnipdeck::tr(command.caption));
  action->setObjectName(command.entry);
  action->setShortcut(QKeySequence::fromString(QString::fromLatin1(command.shortcut), QKeySequence::PortableText));
  if (command.icon) action->setIcon(DrawnIcon(QString::fromLatin1(command.icon), QColor(kGreyMenus.menuBarText)));
  action->setEnabled(command.handler);
  if (command.handler) QObject::connect(action, &QAction::triggered, &window, command.handler);
}

}  // namespace

void BuildMenus(frmSnipdeck& window, QMenuBar& bar) {
  for (const Menu& menu : MainMenus()) {
    QMenu* widget = bar.addMenu(frmSnipdeck::tr(menu.caption));
    widget->setObjectName(menu.name);
    for (const Command& command : menu.entries) AddEntry(window, *widget, command);
  }
  (new MenuStyle(kGreyMenus, &window))->ApplyTo(bar);
}

}  // namespace snipdeck

#include "editor/editor_bars.h"

#include <QMenuBar>

#include "capture/text_panel.h"
#include "editor/editor_table.h"
#include "editor/frm_rtf_htm.h"
#include "platform/menu_colours.h"
#include "platform/qt/command_button.h"
#include "platform/qt/drawn_icon.h"
#include "platform/qt/menu_style.h"

namespace snipdeck {

namespace {

constexpr double kButtonHeight = 400;
constexpr double kButtonWidth = 460;
constexpr double kExitWidth = 540;

void AddEntry(frm_RTF_HTM& window, QMenu& menu, const EditorEntry& entry) {
  if (!entry.name) {
    menu.addSeparator();
    return;
  }
  QAction* action = menu.addAction(frm_RTF_HTM::tr(entry.caption));
  action->setObjectName(entry.name);
  action->setShortcut(QKeySequence::fromString(QString::fromLatin1(entry.shortcut), QKeySequence::PortableText));
  if (entry.icon) action->setIcon(DrawnIcon(QString::fromLatin1(entry.icon), QColor(kGreyMenus.menuBarText)));
  QObject::connect(action, &QAction::triggered, &window, entry.handler);
}

CommandButton* MakeButton(frm_RTF_HTM& window, QWidget& strip, const EditorButton& button) {
  auto* widget = new CommandButton(QString::fromLatin1(button.icon), frm_RTF_HTM::tr(button.toolTip), &strip);
  widget->setObjectName(button.name);
  const bool isExit = &button == &EditorButtons().front();
  ApplyRect(*widget, {button.left, button.top, isExit ? kExitWidth : kButtonWidth, kButtonHeight});
  QObject::connect(widget, &CommandButton::clicked, &window, button.handler);
  return widget;
}

}  // namespace

void BuildEditorMenus(frm_RTF_HTM& window, QMenuBar& bar) {
  for (const EditorMenu& menu : EditorMenus()) {
    QMenu* widget = bar.addMenu(frm_RTF_HTM::tr(menu.caption));
    widget->setObjectName(menu.name);
    for (const EditorEntry& entry : menu.entries) AddEntry(window, *widget, entry);
  }
  (new MenuStyle(kGreyMenus, &window))->ApplyTo(bar);
}

void BuildToolStrip(frm_RTF_HTM& window, QWidget& strip) {
  QWidget* before = nullptr;
  for (const EditorButton& button : EditorButtons()) {
    QWidget* widget = MakeButton(window, strip, button);
    if (before) QWidget::setTabOrder(before, widget);
    before = widget;
  }
}

}  // namespace snipdeck

#include "platform/qt/text_menu.h"

#include <QMenu>
#include <QTextDocument>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

namespace {

/// Fills one menu; an entry that changes the text is offered where it can be changed, and told as an edit.
class MenuFiller {
 public:
  MenuFiller(QMenu& menu, RichTextControl& control) : m_menu(menu), m_control(control) {}

  template <typename Slot>
  void Add(const QString& caption, const QKeySequence& key, bool enabled, Slot slot) {
    QAction* action = m_menu.addAction(caption, &m_control, slot);
    action->setShortcut(key);
    action->setShortcutVisibleInContextMenu(true);
    action->setEnabled(enabled);
  }
  template <typename Slot>
  void AddEdit(const QString& caption, const QKeySequence& key, bool enabled, Slot slot) {
    Add(caption, key, enabled && !m_control.isReadOnly(), [this, slot] {
      slot();
      emit m_control.Edited();
    });
  }
  void AddSeparator() { m_menu.addSeparator(); }

 private:
  QMenu& m_menu;
  RichTextControl& m_control;
};

void AddEditing(MenuFiller& menu, RichTextControl& control) {
  const bool hasSelection = control.textCursor().hasSelection();
  const QTextDocument& document = *control.document();
  menu.AddEdit(control.tr("&Undo"), QKeySequence::Undo, document.isUndoAvailable(), [&control] { control.undo(); });
  menu.AddEdit(control.tr("&Redo"), QKeySequence::Redo, document.isRedoAvailable(), [&control] { control.redo(); });
  menu.AddSeparator();
  menu.AddEdit(control.tr("Cu&t"), QKeySequence::Cut, hasSelection, [&control] { control.ClipboardAction(1); });
  menu.Add(control.tr("&Copy"), QKeySequence::Copy, hasSelection, [&control] { control.ClipboardAction(2); });
  menu.AddEdit(control.tr("&Paste"), QKeySequence::Paste, control.CanPaste(),
               [&control] { control.ClipboardAction(3); });
  menu.AddEdit(control.tr("Paste as plain te&xt"), {}, control.CanPaste(), [&control] { control.PastePlainText(); });
  menu.AddEdit(control.tr("&Delete"), QKeySequence::Delete, hasSelection,
               [&control] { control.textCursor().removeSelectedText(); });
  menu.AddSeparator();
  menu.Add(control.tr("Select &all"), QKeySequence::SelectAll, !document.isEmpty(),
           [&control] { control.selectAll(); });
}

// The dialogs tell their edits themselves, since they can be cancelled.
void AddDialogs(MenuFiller& menu, RichTextControl& control) {
  const bool canEdit = !control.isReadOnly();
  menu.Add(control.tr("&Font..."), Qt::CTRL | Qt::Key_0, canEdit, [&control] { control.FontDialog(); });
  menu.Add(control.tr("Para&graph..."), Qt::CTRL | Qt::Key_4, canEdit, [&control] { control.ParagraphDialog(); });
  menu.AddSeparator();
  menu.Add(control.tr("F&ind..."), Qt::CTRL | Qt::Key_F, true, [&control] { control.FindReplaceDialog(1); });
  menu.Add(control.tr("R&eplace..."), Qt::CTRL | Qt::Key_R, canEdit, [&control] { control.FindReplaceDialog(2); });
  menu.AddSeparator();
  menu.Add(control.tr("Formatting mar&ks"), Qt::CTRL | Qt::Key_F3, true,
           [&control] { control.SetShowFormatting(!control.ShowFormatting()); });
}

}  // namespace

void ShowTextMenu(RichTextControl& control, const QPoint& at) {
  QMenu menu(control.window());
  MenuFiller filler(menu, control);
  AddEditing(filler, control);
  filler.AddSeparator();
  AddDialogs(filler, control);
  QAction* const marks = menu.actions().last();
  marks->setCheckable(true);
  marks->setChecked(control.ShowFormatting());
  menu.exec(at);
}

}  // namespace snipdeck

#pragma once

#include <functional>

#include <QObject>

#include "editor/editor_table.h"

class QInputMethodEvent;
class QKeyEvent;

namespace snipdeck {

class RichTextControl;

/// What the editor does with the keyboard before its text control sees it: the editor's keys, and what is typed, be it
/// by single keys or through an input method.
class TypingFilter : public QObject {
  Q_OBJECT

 public:
  struct Host {
    std::function<void(EditorHandler)> run;
    std::function<void()> markChanged;
    /// Whether a menu entry has this key; the menus' keys come before those of the control.
    std::function<bool(const QKeyEvent&)> isMenuKey;
  };

  /// The host lives as long as the control.
  TypingFilter(RichTextControl& control, Host host);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool ClaimKey(QKeyEvent& event) const;
  bool KeyDown(const QKeyEvent& event);
  bool KeyPress(const QKeyEvent& event);
  bool Compose(const QInputMethodEvent& event);

  RichTextControl& m_control;
  Host m_host;
};

}  // namespace snipdeck

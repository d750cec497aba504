#pragma once

#include <deque>
#include <memory>

#include <QBasicTimer>
#include <QObject>
#include <QTextCursor>

#include "richtext/flow_text.h"
#include "richtext/rich_text.h"

class QTextEdit;

namespace snipdeck {

/// Puts long texts into a control part by part between the user's events, since a document takes some microseconds for
/// each paragraph. Each text grows where its first part was put, whatever is added behind it. Keys, clicks and drops in
/// the control wait until its text is complete. The parts are no undo steps.
class GradualFill : public QObject {
  Q_OBJECT

 public:
  explicit GradualFill(QTextEdit& control) : m_control(control) {}

  /// Puts the first part of a long text at `cursor`, the end of the control's text, which comes to be behind that part.
  /// False where nothing was done: the text is short, has tables, or is to be a step of undo.
  bool Start(const RichText& text, QTextCursor& cursor);
  bool IsFilling() const { return !m_texts.empty(); }
  /// Puts some of what is missing into the control, for some milliseconds.
  void AddSome();
  /// Puts all that is missing into the control now.
  void Finish();
  /// The control is being emptied.
  void Cancel();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Growing {
    std::shared_ptr<const FlowText> text;
    std::size_t nextPiece;
    BegunLists lists;
    QTextCursor end;
    bool isFollowed;  ///< The caret, behind the text, is to be seen.
  };

  void AddPart();
  void Watch(bool watch);

  QTextEdit& m_control;
  std::deque<Growing> m_texts;
  bool m_isAdding = false;
  QBasicTimer m_timer;
};

}  // namespace snipdeck

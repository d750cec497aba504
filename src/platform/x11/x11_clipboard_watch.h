#pragma once

#include <deque>
#include <optional>

#include <QThread>

#include "platform/change_watch.h"
#include "platform/clipboard.h"
#include "platform/x11/selection_transfer.h"

namespace snipdeck {

class ClipboardListener;

/// Watches the clipboard of an X server through XFixes and reads every change in the background, on a thread of its
/// own, so that no copy is lost while the windows are busy. Changes are told in the order in which they were made,
/// except what a second clipboard program makes of a copy by taking it over at once. What the clipboard holds when the
/// watch starts is told as the first change, since reading it takes another program's answer too.
class X11ClipboardWatch : public QObject, public ChangeWatch, public Clipboard {
  Q_OBJECT

 public:
  explicit X11ClipboardWatch(TransferLimits limits = {}, QObject* parent = nullptr);
  ~X11ClipboardWatch() override;

  /// False without an X server or where it has no XFixes; then no change is ever told.
  bool IsWorking() const { return m_isWorking; }

  void StartWatching(Handler onChange) override;
  void StopWatching() override;
  void Hold(bool hold) override;

  bool HasFormat(ClipboardFormat format) const override;
  RichTextPayload RichText() const override { return m_current.richText; }
  QString Text() const override { return m_current.text; }
  QStringList FileList() const override { return m_current.files; }

 private:
  void TakeChange(const std::optional<ClipboardSnapshot>& contents);
  void TellWaiting();
  void AnswerOwnContents();

  QThread m_thread;
  ClipboardListener* m_listener;  // deletes itself when its thread ends
  bool m_isWorking = false;
  Handler m_onChange;
  std::deque<std::optional<ClipboardSnapshot>> m_waiting;
  ClipboardSnapshot m_current;
  bool m_telling = false;
  bool m_isHeld = false;
};

}  // namespace snipdeck

#pragma once

#include <deque>

#include "platform/change_watch.h"
#include "platform/clipboard.h"
#include "platform/x11/snapshot_reader.h"

namespace snipdeck {

/// Watches the clipboard of an X server through XFixes and reads every change in the background, several at a time,
/// each bounded. Changes are told in the order in which they were made, except what a second clipboard program makes of
/// a copy by taking it over at once. What the clipboard holds when the watch starts is told as the first change, since
/// reading it takes another program's answer too.
class X11ClipboardWatch : public QObject, public ChangeWatch, public Clipboard {
  Q_OBJECT

 public:
  explicit X11ClipboardWatch(TransferLimits limits = {}, QObject* parent = nullptr);
  ~X11ClipboardWatch() override;

  /// False without an X server or where it has no XFixes; then no change is ever told.
  bool IsWorking() const { return m_isWorking; }

  void StartWatching(Handler onChange) override;
  void StopWatching() override;

  bool HasFormat(ClipboardFormat format) const override;
  RichTextPayload RichText() const override { return m_current.richText; }
  QString Text() const override { return m_current.text; }
  QStringList FileList() const override { return m_current.files; }

 private:
  /// What becomes of the oldest change that has not been told.
  enum class Verdict { Wait, Drop, Tell };

  CopyOrigin OriginOf(xcb_window_t owner, xcb_timestamp_t time) const;
  void HandleEvent(const xcb_generic_event_t* event);
  void HandleOwnerChange(const xcb_xfixes_selection_notify_event_t& event);
  void BeginReading(xcb_timestamp_t time, const CopyOrigin& origin);
  void TellFinished();
  Verdict JudgeFront() const;

  XConnection m_connection;
  PropertyPool m_pool;
  TransferLimits m_limits;
  bool m_isWorking = false;
  Handler m_onChange;
  std::deque<std::unique_ptr<SnapshotReader>> m_readers;
  ClipboardSnapshot m_current;
  EchoFilter m_echoes;
  bool m_telling = false;
};

}  // namespace snipdeck

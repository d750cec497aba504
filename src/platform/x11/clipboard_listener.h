#pragma once

#include <deque>
#include <optional>

#include "platform/clipboard.h"
#include "platform/x11/snapshot_reader.h"

namespace snipdeck {

/// Reads every change of an X server's clipboard, several at a time, each bounded, and tells them in the order in which
/// they were made. It lives on a thread of its own, because an owner holds only its newest copy: nothing that keeps the
/// windows busy may make a reading late.
class ClipboardListener : public QObject {
  Q_OBJECT

 public:
  explicit ClipboardListener(TransferLimits limits) : m_limits(limits) {}

  // The following run on the listener's thread.

  /// `ownClient` is the client part of this program's own windows. False without an X server or where it has no XFixes.
  bool Open(std::uint32_t ownClient);
  void Start();
  void Stop();
  /// The answer to WantsOwnContents(); nothing when this program no longer owns the clipboard.
  void TakeOwnContents(const std::optional<ClipboardSnapshot>& contents, const std::vector<QByteArray>& targets);

 signals:
  /// One change, read completely. Without contents nothing of it could be read.
  void Told(const std::optional<ClipboardSnapshot>& contents);
  /// This program copied, and only the windows' thread can tell what.
  void WantsOwnContents();

 private:
  /// What becomes of the oldest change that has not been told.
  enum class Verdict { Wait, Drop, Tell };

  CopyOrigin OriginOf(xcb_window_t owner, xcb_timestamp_t time) const;
  void HandleEvent(const xcb_generic_event_t* event);
  void HandleOwnerChange(const xcb_xfixes_selection_notify_event_t& event);
  void BeginReading(xcb_timestamp_t time, const CopyOrigin& origin);
  void TellFinished();
  Verdict JudgeFront() const;

  TransferLimits m_limits;
  std::uint32_t m_ownClient = 0;
  bool m_isListening = false;
  std::optional<XConnection> m_connection;
  std::optional<PropertyPool> m_pool;
  std::deque<std::unique_ptr<SnapshotReader>> m_readers;
  EchoFilter m_echoes;
};

}  // namespace snipdeck

#pragma once

#include <optional>
#include <vector>

#include <QObject>

#include "platform/result.h"
#include "platform/x11/selection_transfer.h"
#include "platform/x11/snapshot_reader.h"

namespace snipdeck {

/// What ends a read for which the program waits.
struct WaitLimits {
  /// Milliseconds without progress, which is a piece of `progressBytes` or the end.
  int stallMs = 1000;
  qint64 progressBytes = 64 << 10;
  /// Milliseconds in all.
  int totalMs = 5000;
  /// Bytes that one format may have.
  qint64 maxBytes = qint64{256} << 20;
};

/// What another program has on the clipboard at this moment, read while the caller waits; events are handled meanwhile,
/// the user's are not. An owner that let us wait in vain once is not asked again until the clipboard changes.
class ForeignContents : public QObject {
  Q_OBJECT

 public:
  explicit ForeignContents(WaitLimits limits = {}, QObject* parent = nullptr);

  /// The names of the targets, without those of the protocol and those too long to be listed; none if the owner does
  /// not answer or marks its contents as secret.
  const std::vector<QByteArray>& Targets();
  /// The bytes of one target; a failure names it.
  Result<QByteArray> Read(const QByteArray& target);
  /// The window that owns the clipboard; 0 for none.
  xcb_window_t Owner() { return m_connection.SelectionOwner(); }
  /// The present owner let us wait in vain.
  bool OwnerIsSilent() const { return m_ownerIsSilent; }
  /// Leaves the clipboard without an owner.
  void TakeAway();

 private:
  void HandleEvent(const xcb_generic_event_t* event);
  void NoticeChanges();
  std::vector<QByteArray> ReadTargets();
  bool IsSecret(const std::vector<QByteArray>& targets);
  Result<QByteArray> Convert(const QByteArray& target);
  void Await(SelectionTransfer& transfer);

  XConnection m_connection;
  PropertyPool m_pool;
  WaitLimits m_limits;
  /// The server's time of the owner's claim, so that an answer meant for an earlier question is not taken for a later
  /// one.
  xcb_timestamp_t m_time = XCB_CURRENT_TIME;
  std::optional<std::vector<QByteArray>> m_targets;
  bool m_ownerIsSilent = false;
  bool m_hasChanged = false;
  SelectionTransfer* m_transfer = nullptr;
};

}  // namespace snipdeck

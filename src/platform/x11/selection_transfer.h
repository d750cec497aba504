#pragma once

#include <QByteArray>
#include <QString>

#include "platform/x11/x_connection.h"

namespace snipdeck {

/// What ends a transfer that its owner does not end.
struct TransferLimits {
  /// Milliseconds without any progress.
  int stallMs = 1000;
  /// Milliseconds that a transfer gets in all once a newer copy has replaced its contents.
  int supersededMs = 2000;
  /// Bytes that one format may have.
  qint64 maxBytes = qint64{256} << 20;
};

/// One format on its way from the clipboard's owner to us: asked for, answered at once or in pieces (INCR). It is
/// driven by the events that its caller passes in and never waits for the owner.
class SelectionTransfer {
 public:
  enum class State { Waiting, Incremental, Done, Failed };

  /// Asks the owner for `target`, to be put into `property` of the connection's window. `time` is that of the change.
  SelectionTransfer(XConnection& connection, xcb_atom_t target, xcb_atom_t property, xcb_timestamp_t time,
                    qint64 maxBytes);

  /// True if the event belonged to this transfer.
  bool HandleNotify(const xcb_selection_notify_event_t& event);
  bool HandleProperty(const xcb_property_notify_event_t& event);
  /// Ends an unfinished transfer.
  void Abandon(const QString& why);

  State CurrentState() const { return m_state; }
  bool IsFinished() const { return m_state == State::Done || m_state == State::Failed; }
  xcb_atom_t Target() const { return m_target; }
  xcb_atom_t Property() const { return m_property; }
  /// True once the owner has answered for good, so that nothing more arrives in the property.
  bool PropertyIsFree() const { return m_answered && IsFinished() && !m_abandonedMidway; }
  /// The data, complete only when Done.
  const QByteArray& Bytes() const { return m_bytes; }
  xcb_atom_t Type() const { return m_type; }
  const QString& FailureText() const { return m_failure; }

 private:
  void TakeProperty();
  void Append(const xcb_get_property_reply_t& reply);
  void Fail(const QString& why);

  XConnection& m_connection;
  xcb_atom_t m_target;
  xcb_atom_t m_property;
  xcb_timestamp_t m_time;
  qint64 m_maxBytes;
  State m_state = State::Waiting;
  bool m_answered = false;
  bool m_abandonedMidway = false;
  QByteArray m_bytes;
  xcb_atom_t m_type = XCB_ATOM_NONE;
  QString m_failure;
};

}  // namespace snipdeck

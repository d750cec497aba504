#include "platform/x11/selection_transfer.h"

namespace snipdeck {

SelectionTransfer::SelectionTransfer(XConnection& connection, xcb_atom_t target, xcb_atom_t property,
                                     xcb_timestamp_t time, qint64 maxBytes)
    : m_connection(connection), m_target(target), m_property(property), m_time(time), m_maxBytes(maxBytes) {
  xcb_connection_t* raw = m_connection.Raw();
  xcb_delete_property(raw, m_connection.Window(), m_property);
  xcb_convert_selection(raw, m_connection.Window(), m_connection.Atom("CLIPBOARD"), m_target, m_property, m_time);
}

bool SelectionTransfer::HandleNotify(const xcb_selection_notify_event_t& event) {
  if (m_answered || event.target != m_target) return false;
  // A refusal names no property, so the time must tell whose it is.
  const bool refused = event.property == XCB_ATOM_NONE;
  if (refused ? event.time != m_time : event.property != m_property) return false;
  m_answered = true;
  if (IsFinished()) {  // abandoned before: clear away what came too late
    xcb_delete_property(m_connection.Raw(), m_connection.Window(), m_property);
  } else if (refused) {
    Fail(QStringLiteral("the owner refused it"));
  } else {
    TakeProperty();
  }
  return true;
}

bool SelectionTransfer::HandleProperty(const xcb_property_notify_event_t& event) {
  if (m_state != State::Incremental || event.atom != m_property || event.state != XCB_PROPERTY_NEW_VALUE) return false;
  TakeProperty();
  return true;
}

void SelectionTransfer::Abandon(const QString& why) {
  if (IsFinished()) return;
  m_abandonedMidway = m_state == State::Incremental;
  Fail(why);
}

void SelectionTransfer::TakeProperty() {
  // Asking for one unit more than allowed tells a text that is just too long from one that fits. The server sends what
  // it has, whatever the owner announced.
  const auto wanted = static_cast<uint32_t>(m_maxBytes / 4 + 1);
  const auto cookie =
      xcb_get_property(m_connection.Raw(), 1, m_connection.Window(), m_property, XCB_GET_PROPERTY_TYPE_ANY, 0, wanted);
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection.Raw(), cookie, nullptr));
  if (!reply || reply->type == XCB_ATOM_NONE) return Fail(QStringLiteral("the owner delivered nothing"));
  if (m_state == State::Waiting && reply->type == m_connection.Atom("INCR")) {
    m_state = State::Incremental;
    return;
  }
  m_type = reply->type;
  Append(*reply);
}

void SelectionTransfer::Append(const xcb_get_property_reply_t& reply) {
  const int length = xcb_get_property_value_length(&reply);
  if (m_bytes.size() + length > m_maxBytes || reply.bytes_after > 0) {
    m_abandonedMidway = m_state == State::Incremental;
    return Fail(QStringLiteral("it is larger than %1 bytes").arg(m_maxBytes));
  }
  m_bytes.append(static_cast<const char*>(xcb_get_property_value(&reply)), length);
  if (m_state == State::Waiting || length == 0) m_state = State::Done;
}

void SelectionTransfer::Fail(const QString& why) {
  m_state = State::Failed;
  m_failure = why;
  m_bytes = QByteArray();
}

}  // namespace snipdeck

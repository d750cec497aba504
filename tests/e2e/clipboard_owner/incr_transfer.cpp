#include "incr_transfer.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace snipdeck::e2e {

IncrTransfer::IncrTransfer(X11Connection& connection, const xcb_selection_request_event_t& request, Data data,
                           TransferPlan plan)
    : m_connection(connection),
      m_window(request.requestor),
      m_property(request.property),
      m_type(request.target),
      m_data(std::move(data)),
      m_plan(plan) {
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(m_connection.Get(), m_window, XCB_CW_EVENT_MASK, &events);
  xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_window, m_property, m_connection.Atom("INCR"), 32, 1,
                      &m_plan.announced);
}

void IncrTransfer::OnPropertyDeleted() {
  if (m_plan.diesAfterFirstPiece && m_sent > 0) _exit(0);
  if (!m_plan.sendsNothing) m_due = Clock::now() + m_plan.pause;
}

void IncrTransfer::Advance(Clock::time_point now) {
  if (m_due > now) return;
  m_due = Clock::time_point::max();
  SendPiece();
}

void IncrTransfer::SendPiece() {
  // The empty piece at the end tells the requestor that everything has come.
  const std::size_t length = std::min(m_plan.pieceSize, m_data->size() - m_sent);
  xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, m_window, m_property, m_type, 8,
                      static_cast<std::uint32_t>(length), m_data->data() + m_sent);
  m_sent += length;
  m_isDone = length == 0;
}

}  // namespace snipdeck::e2e

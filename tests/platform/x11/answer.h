#pragma once

#include "platform/x11/x_connection.h"

namespace snipdeck {

/// Tells who asked for a selection that the answer stands in the property named.
inline void TellAnswered(XConnection& connection, const xcb_selection_request_event_t& request) {
  union {
    xcb_selection_notify_event_t notice;
    char wire[32];
  } answer{};
  answer.notice = {XCB_SELECTION_NOTIFY, 0, 0, request.time, request.requestor, request.selection, request.target,
                   request.property};
  xcb_send_event(connection.Raw(), 0, request.requestor, 0, answer.wire);
  connection.Flush();
}

}  // namespace snipdeck

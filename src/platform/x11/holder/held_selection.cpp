#include "platform/x11/holder/held_selection.h"

#include <algorithm>
#include <cstdlib>

namespace snipdeck::holder {

namespace {

constexpr std::size_t kPieceSize = 200'000;
constexpr std::size_t kMaxTransfers = 64;
constexpr std::uint32_t kMaxPairs = 512;

}  // namespace

HeldSelection::HeldSelection(const Payload& payload) : m_connection(xcb_connect(nullptr, nullptr)), m_payload(payload) {
  if (xcb_connection_has_error(m_connection)) return;
  CreateWindow();
  for (const auto& [target, data] : m_payload.offers) {
    const xcb_atom_t atom = Atom(target);
    if (atom != XCB_ATOM_NONE && m_data.emplace(atom, &data).second) m_order.push_back(atom);
  }
}

HeldSelection::~HeldSelection() {
  xcb_disconnect(m_connection);
}

void HeldSelection::CreateWindow() {
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
  m_window = xcb_generate_id(m_connection);
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

xcb_atom_t HeldSelection::Atom(const std::string& name) {
  const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

bool HeldSelection::Take() {
  if (xcb_connection_has_error(m_connection)) return false;
  const xcb_atom_t clipboard = Atom("CLIPBOARD");
  // Only an event carries the server's time; this changes nothing and brings one.
  xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0, nullptr);
  xcb_flush(m_connection);
  while (m_takenAt == XCB_CURRENT_TIME) {
    const Reply<xcb_generic_event_t> event(xcb_wait_for_event(m_connection));
    if (!event) return false;
    if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) continue;
    m_takenAt = reinterpret_cast<const xcb_property_notify_event_t&>(*event).time;
  }
  // A claim with this time fails if somebody copied after it, and an owner that came before it is seen here.
  const auto before = xcb_get_selection_owner(m_connection, clipboard);
  const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(m_connection, before, nullptr));
  if (!owner || owner->owner != m_payload.expectedOwner) return false;
  xcb_set_selection_owner(m_connection, m_window, clipboard, m_takenAt);
  const auto after = xcb_get_selection_owner(m_connection, clipboard);
  const Reply<xcb_get_selection_owner_reply_t> taken(xcb_get_selection_owner_reply(m_connection, after, nullptr));
  return taken && taken->owner == m_window;
}

void HeldSelection::Serve() {
  while (const Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
    switch (event->response_type & 0x7F) {
      case XCB_SELECTION_CLEAR:
        return;
      case XCB_SELECTION_REQUEST:
        Answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
        break;
      case XCB_PROPERTY_NOTIFY:
        ContinueTransfer(reinterpret_cast<const xcb_property_notify_event_t&>(*event));
        break;
      default:  // errors among them: a requestor may be gone before its answer
        break;
    }
    xcb_flush(m_connection);
  }
}

void HeldSelection::Answer(const xcb_selection_request_event_t& request) {
  // An event on the wire has 32 bytes, more than the structure of this one.
  union {
    xcb_selection_notify_event_t notice;
    char wire[32];
  } message{};
  // Programs of old name no property and expect the answer in one called like the target.
  const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
  const bool isMultiple = request.target == Atom("MULTIPLE") && request.property != XCB_ATOM_NONE;
  const bool isWritten = isMultiple ? WriteMultiple(request) : Write(request.requestor, property, request.target);
  message.notice.response_type = XCB_SELECTION_NOTIFY;
  message.notice.time = request.time;
  message.notice.requestor = request.requestor;
  message.notice.selection = request.selection;
  message.notice.target = request.target;
  message.notice.property = isWritten ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  xcb_send_event(m_connection, 0, request.requestor, 0, message.wire);
}

bool HeldSelection::Write(xcb_window_t window, xcb_atom_t property, xcb_atom_t target) {
  if (target == Atom("TARGETS")) {
    WriteTargets(window, property);
    return true;
  }
  if (target == Atom("TIMESTAMP")) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_INTEGER, 32, 1, &m_takenAt);
    return true;
  }
  const auto found = m_data.find(target);
  if (found == m_data.end()) return false;
  const std::string& data = *found->second;
  if (data.size() > kPieceSize) {
    BeginTransfer(window, property, target, data);
  } else {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, target, 8,
                        static_cast<std::uint32_t>(data.size()), data.data());
  }
  return true;
}

void HeldSelection::WriteTargets(xcb_window_t window, xcb_atom_t property) {
  std::vector<xcb_atom_t> targets{Atom("TARGETS"), Atom("TIMESTAMP"), Atom("MULTIPLE")};
  targets.insert(targets.end(), m_order.begin(), m_order.end());
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(targets.size()), targets.data());
}

bool HeldSelection::WriteMultiple(const xcb_selection_request_event_t& request) {
  const auto cookie =
      xcb_get_property(m_connection, 0, request.requestor, request.property, XCB_ATOM_ANY, 0, 2 * kMaxPairs);
  const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
  if (!reply || reply->format != 32) return false;
  auto* atoms = static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get()));
  const std::uint32_t pairs = reply->value_len / 2;
  for (std::uint32_t i = 0; i < pairs; ++i) {
    // What cannot be given is marked in the list itself.
    if (!Write(request.requestor, atoms[2 * i + 1], atoms[2 * i])) atoms[2 * i + 1] = XCB_ATOM_NONE;
  }
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, reply->type, 32,
                      2 * pairs, atoms);
  return true;
}

void HeldSelection::BeginTransfer(xcb_window_t window, xcb_atom_t property, xcb_atom_t target,
                                  const std::string& data) {
  // Requestors that never fetched their pieces make room.
  if (m_transfers.size() >= kMaxTransfers) m_transfers.pop_front();
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
  const auto size = static_cast<std::uint32_t>(data.size());
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, Atom("INCR"), 32, 1, &size);
  m_transfers.push_back({window, property, target, &data, 0});
}

void HeldSelection::ContinueTransfer(const xcb_property_notify_event_t& event) {
  if (event.state != XCB_PROPERTY_DELETE) return;
  const auto transfer = std::find_if(m_transfers.begin(), m_transfers.end(), [&](const Transfer& candidate) {
    return candidate.window == event.window && candidate.property == event.atom;
  });
  if (transfer == m_transfers.end()) return;
  // The empty piece at the end tells the requestor that everything has come.
  const std::size_t length = std::min(kPieceSize, transfer->data->size() - transfer->sent);
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, transfer->window, transfer->property, transfer->target, 8,
                      static_cast<std::uint32_t>(length), transfer->data->data() + transfer->sent);
  transfer->sent += length;
  if (length == 0) m_transfers.erase(transfer);
}

}  // namespace snipdeck::holder

#include "platform/x11/x11_desktop.h"

#include <algorithm>
#include <cstring>

#include "platform/x11/x_connection.h"

namespace snipdeck {

namespace {

constexpr std::uint32_t kMostValues = 65536;
constexpr std::uint32_t kMostTextWords = 1024;

}  // namespace

X11Desktop::X11Desktop() {
  int number = 0;
  m_connection.reset(xcb_connect(nullptr, &number));
  if (xcb_connection_has_error(m_connection.get())) return;
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
  for (; number > 0 && screens.rem > 1; --number) xcb_screen_next(&screens);
  m_root = screens.data->root;
}

xcb_atom_t X11Desktop::Atom(const QByteArray& name) const {
  const auto cookie = xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.constData());
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

X11Desktop::Property X11Desktop::Read(xcb_window_t window, const QByteArray& name, std::uint32_t mostWords) const {
  const auto cookie =
      xcb_get_property(m_connection.get(), 0, window, Atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords);
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
  if (!reply) return {};
  const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
  return {reply->type, reply->format, QByteArray(bytes, xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> X11Desktop::Values(xcb_window_t window, const QByteArray& property, xcb_atom_t type) const {
  const Property read = Read(window, property, kMostValues);
  if (read.type != type || read.itemBits != 32) return {};
  std::vector<std::uint32_t> values(static_cast<size_t>(read.bytes.size()) / sizeof(std::uint32_t));
  std::memcpy(values.data(), read.bytes.constData(), values.size() * sizeof(std::uint32_t));
  return values;
}

QString X11Desktop::Text(xcb_window_t window, const QByteArray& property) const {
  const Property read = Read(window, property, kMostTextWords);
  if (read.itemBits != 8) return {};
  return read.type == XCB_ATOM_STRING ? QString::fromLatin1(read.bytes) : QString::fromUtf8(read.bytes);
}

bool X11Desktop::Supports(const QByteArray& message) const {
  const auto supported = Values(m_root, "_NET_SUPPORTED", XCB_ATOM_ATOM);
  return std::find(supported.begin(), supported.end(), Atom(message)) != supported.end();
}

void X11Desktop::Tell(const QByteArray& message, std::uint32_t value) const {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = m_root;
  event.type = Atom(message);
  event.data.data32[0] = value;
  xcb_send_event(m_connection.get(), 0, m_root,
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
  // The answer to any question tells that the server has handled everything before it.
  const XReply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

}  // namespace snipdeck

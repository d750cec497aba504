#include "platform/x11/raise_window.h"

#include <cstdlib>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

namespace snipdeck {

namespace {

// A pager speaks for the user, so window managers do as it says, whatever the user typed last elsewhere.
constexpr std::uint32_t kSourcePager = 2;
constexpr std::uint32_t kAllWorkspaces = 0xFFFFFFFF;

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

xcb_atom_t Atom(xcb_connection_t* connection, const QByteArray& name) {
  const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
  xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
  const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

std::optional<std::uint32_t> Property(xcb_connection_t* connection, xcb_window_t window, const QByteArray& name) {
  const auto cookie = xcb_get_property(connection, 0, window, Atom(connection, name), XCB_ATOM_ANY, 0, 1);
  xcb_get_property_reply_t* reply = xcb_get_property_reply(connection, cookie, nullptr);
  std::optional<std::uint32_t> value;
  if (reply && reply->format == 32 && xcb_get_property_value_length(reply) > 0) {
    value = *static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
  }
  std::free(reply);
  return value;
}

void Ask(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window, const QByteArray& what,
         std::uint32_t value) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = Atom(connection, what);
  event.data.data32[0] = value;
  event.data.data32[1] = XCB_CURRENT_TIME;
  xcb_send_event(connection, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
}

// Not every window manager goes to the window's workspace by itself.
void AskWindowManager(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window) {
  const auto workspace = Property(connection, window, "_NET_WM_DESKTOP");
  if (workspace && *workspace != kAllWorkspaces && workspace != Property(connection, root, "_NET_CURRENT_DESKTOP")) {
    Ask(connection, root, root, "_NET_CURRENT_DESKTOP", *workspace);
  }
  Ask(connection, root, window, "_NET_ACTIVE_WINDOW", kSourcePager);
}

void RaiseDirectly(xcb_connection_t* connection, xcb_window_t window) {
  const std::uint32_t above = XCB_STACK_MODE_ABOVE;
  xcb_map_window(connection, window);
  xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
  xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

}  // namespace

bool RaiseWindow(const QByteArray& display, std::uint32_t window) {
  int number = 0;
  const Connection connection(xcb_connect(display.isEmpty() ? nullptr : display.constData(), &number), xcb_disconnect);
  if (xcb_connection_has_error(connection.get())) return false;
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
  for (; number > 0 && screens.rem > 1; --number) xcb_screen_next(&screens);
  if (Property(connection.get(), screens.data->root, "_NET_SUPPORTING_WM_CHECK")) {
    AskWindowManager(connection.get(), screens.data->root, window);
  } else {
    RaiseDirectly(connection.get(), window);
  }
  // The answer to this question tells that the server has handled everything before it.
  std::free(xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr));
  return true;
}

}  // namespace snipdeck

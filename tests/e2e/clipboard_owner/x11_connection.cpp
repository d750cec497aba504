#include "x11_connection.h"

#include <cstdlib>
#include <stdexcept>

namespace snipdeck::e2e {

void FreeDeleter::operator()(void* memory) const {
  std::free(memory);
}

X11Connection::X11Connection() : m_connection(xcb_connect(nullptr, nullptr)) {
  if (xcb_connection_has_error(m_connection)) {
    xcb_disconnect(m_connection);
    throw std::runtime_error("no display");
  }
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
  m_window = xcb_generate_id(m_connection);
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, &events);
}

X11Connection::~X11Connection() {
  xcb_disconnect(m_connection);
}

xcb_atom_t X11Connection::Atom(const std::string& name) {
  if (const auto known = m_atoms.find(name); known != m_atoms.end()) return known->second;
  const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
  return m_atoms[name] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

}  // namespace snipdeck::e2e

#include "platform/x11/x_connection.h"

#include <QSocketNotifier>

namespace snipdeck {

XConnection::XConnection(QObject* parent) : QObject(parent), m_connection(xcb_connect(nullptr, nullptr)) {
  if (!IsValid()) return;
  CreateWindow();
  m_notifier = new QSocketNotifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read, this);
  connect(m_notifier, &QSocketNotifier::activated, this, &XConnection::DispatchEvents);
}

XConnection::~XConnection() = default;

bool XConnection::IsValid() const {
  return xcb_connection_has_error(m_connection.get()) == 0;
}

void XConnection::CreateWindow() {
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
  m_window = xcb_generate_id(m_connection.get());
  const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, screen->root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

xcb_atom_t XConnection::Atom(const QByteArray& name) {
  if (!m_atoms.contains(name)) InternAll({name});
  return m_atoms.value(name);
}

void XConnection::InternAll(const std::vector<QByteArray>& names) {
  std::vector<xcb_intern_atom_cookie_t> cookies;
  cookies.reserve(names.size());
  for (const QByteArray& name : names) {
    cookies.push_back(xcb_intern_atom(m_connection.get(), 0, static_cast<uint16_t>(name.size()), name.constData()));
  }
  for (size_t i = 0; i < names.size(); ++i) {
    const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection.get(), cookies[i], nullptr));
    m_atoms.insert(names[i], reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE));
  }
}

void XConnection::Flush() {
  xcb_flush(m_connection.get());
  // Waiting for a reply may have pulled events into xcb's queue; the socket will not announce those again.
  QMetaObject::invokeMethod(this, &XConnection::DispatchEvents, Qt::QueuedConnection);
}

void XConnection::DispatchEvents() {
  if (m_dispatching) return;
  m_dispatching = true;
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
    emit EventArrived(event.get());
  m_dispatching = false;
  if (!IsValid()) m_notifier->setEnabled(false);
}

}  // namespace snipdeck

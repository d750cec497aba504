#include "platform/x11/x_connection.h"

#include <QSocketNotifier>

namespace snipdeck {

namespace {

constexpr uint8_t kEventMask = 0x7F;  // the top bit only says that the event was sent by a client
constexpr uint32_t kAllOwnerChanges = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
// Owners that make up names must not fill our memory with them.
constexpr qsizetype kMaxKnownNames = 1 << 15;

}  // namespace

XConnection::XConnection(QObject* parent) : QObject(parent), m_connection(xcb_connect(nullptr, nullptr)) {
  if (!IsValid()) return;
  CreateWindow();
  m_firstFixesEvent = InitXFixes();
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

std::vector<QByteArray> XConnection::Names(const std::vector<xcb_atom_t>& atoms) {
  if (m_names.size() > kMaxKnownNames) m_names.clear();
  FetchNames(atoms);
  std::vector<QByteArray> names;
  names.reserve(atoms.size());
  for (const xcb_atom_t atom : atoms) names.push_back(m_names.value(atom));
  return names;
}

void XConnection::FetchNames(const std::vector<xcb_atom_t>& atoms) {
  std::vector<std::pair<xcb_atom_t, xcb_get_atom_name_cookie_t>> asked;
  for (const xcb_atom_t atom : atoms) {
    if (!m_names.contains(atom)) asked.emplace_back(atom, xcb_get_atom_name(m_connection.get(), atom));
  }
  for (const auto& [atom, cookie] : asked) {
    // Without a place for the error it would come as an event.
    xcb_generic_error_t* error = nullptr;
    const XReply<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(m_connection.get(), cookie, &error));
    const XReply<xcb_generic_error_t> freed(error);
    const int length = reply ? xcb_get_atom_name_name_length(reply.get()) : 0;
    m_names.insert(atom, length > 0 && length <= kLongestName ? QByteArray(xcb_get_atom_name_name(reply.get()), length)
                                                              : QByteArray());
  }
}

uint8_t XConnection::InitXFixes() const {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(m_connection.get(), &xcb_xfixes_id);
  if (!extension || !extension->present) return 0;
  const auto cookie = xcb_xfixes_query_version(Raw(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
  const XReply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(Raw(), cookie, nullptr));
  return version ? extension->first_event : uint8_t{0};
}

bool XConnection::ListenForOwners(bool isOn) {
  if (m_firstFixesEvent == 0) return false;
  xcb_xfixes_select_selection_input(Raw(), m_window, Atom("CLIPBOARD"), isOn ? kAllOwnerChanges : 0);
  return true;
}

const xcb_xfixes_selection_notify_event_t* XConnection::AsOwnerChange(const xcb_generic_event_t* event) const {
  if ((event->response_type & kEventMask) != m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY) return nullptr;
  return m_firstFixesEvent == 0 ? nullptr : reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event);
}

xcb_window_t XConnection::SelectionOwner(const QByteArray& selection) {
  if (!IsValid()) return XCB_WINDOW_NONE;
  const auto cookie = xcb_get_selection_owner(Raw(), Atom(selection));
  const XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(Raw(), cookie, nullptr));
  return reply ? reply->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
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
  if (m_notifier && !IsValid()) m_notifier->setEnabled(false);
}

}  // namespace snipdeck

#include "platform/x11/x11_clipboard_watch.h"

#include <QClipboard>
#include <QGuiApplication>

#include <xcb/xfixes.h>

#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr uint8_t kEventMask = 0x7F;  // the top bit only says that the event was sent by a client
constexpr uint32_t kAllSelectionChanges = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

std::vector<QByteArray> AllTargetNames() {
  std::vector<QByteArray> names{"CLIPBOARD", "TARGETS", "INCR", kHtmlTarget, kUriListTarget, kSecrecyTarget};
  for (const auto targets : {RichTextTargets(), TextTargets(), ImageTargets(), FileManagerTargets()}) {
    names.insert(names.end(), targets.begin(), targets.end());
  }
  return names;
}

uint8_t InitXFixes(const XConnection& connection) {
  if (!connection.IsValid()) return 0;
  xcb_connection_t* raw = connection.Raw();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(raw, &xcb_xfixes_id);
  if (!extension || !extension->present) return 0;
  const auto cookie = xcb_xfixes_query_version(raw, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
  const XReply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(raw, cookie, nullptr));
  return version ? extension->first_event : uint8_t{0};
}

bool SameContents(const ClipboardSnapshot& a, const ClipboardSnapshot& b) {
  return a.hasRichText == b.hasRichText && a.hasText == b.hasText && a.hasBitmap == b.hasBitmap &&
         a.hasFileList == b.hasFileList && a.text == b.text && a.richText.bytes == b.richText.bytes &&
         a.files == b.files;
}

}  // namespace

X11ClipboardWatch::X11ClipboardWatch(TransferLimits limits, QObject* parent)
    : QObject(parent), m_pool(m_connection), m_limits(limits), m_firstFixesEvent(InitXFixes(m_connection)) {
  if (!IsWorking()) return;
  m_connection.InternAll(AllTargetNames());
  connect(&m_connection, &XConnection::EventArrived, this, &X11ClipboardWatch::HandleEvent);
}

X11ClipboardWatch::~X11ClipboardWatch() = default;

void X11ClipboardWatch::StartWatching(Handler onChange) {
  m_onChange = std::move(onChange);
  if (!IsWorking()) return;
  SelectEvents(kAllSelectionChanges);
  const auto cookie = xcb_get_selection_owner(m_connection.Raw(), m_connection.Atom("CLIPBOARD"));
  const XReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(m_connection.Raw(), cookie, nullptr));
  if (reply && reply->owner != XCB_WINDOW_NONE) BeginReading(XCB_CURRENT_TIME);
  m_connection.Flush();
}

void X11ClipboardWatch::StopWatching() {
  m_onChange = nullptr;
  if (!IsWorking()) return;
  SelectEvents(0);
  m_connection.Flush();
}

bool X11ClipboardWatch::HasFormat(ClipboardFormat format) const {
  switch (format) {
    case kFormatRichText:
      return m_current.hasRichText;
    case kFormatText:
    case kFormatUnicodeText:
      return m_current.hasText;
    case kFormatBitmap:
    case kFormatDib:
      return m_current.hasBitmap;
    case kFormatFileList:
      return m_current.hasFileList;
    default:
      return false;
  }
}

void X11ClipboardWatch::SelectEvents(uint32_t mask) {
  xcb_xfixes_select_selection_input(m_connection.Raw(), m_connection.Window(), m_connection.Atom("CLIPBOARD"), mask);
}

void X11ClipboardWatch::HandleEvent(const xcb_generic_event_t* event) {
  const uint8_t type = event->response_type & kEventMask;
  if (type == m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY) {
    HandleOwnerChange(*reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event));
  } else if (type == XCB_SELECTION_NOTIFY) {
    for (const auto& reader : m_readers) {
      reader->HandleNotify(*reinterpret_cast<const xcb_selection_notify_event_t*>(event));
    }
  } else if (type == XCB_PROPERTY_NOTIFY) {
    for (const auto& reader : m_readers) {
      reader->HandleProperty(*reinterpret_cast<const xcb_property_notify_event_t*>(event));
    }
  }
}

void X11ClipboardWatch::HandleOwnerChange(const xcb_xfixes_selection_notify_event_t& event) {
  if (!m_onChange) return;
  if (event.owner == XCB_WINDOW_NONE) {
    if (!m_readers.empty()) m_readers.back()->OwnerGone();
    return;
  }
  for (const auto& reader : m_readers) reader->Supersede();
  BeginReading(event.selection_timestamp);
}

void X11ClipboardWatch::BeginReading(xcb_timestamp_t time) {
  const QClipboard* clipboard = QGuiApplication::clipboard();
  if (clipboard->ownsClipboard() && clipboard->mimeData()) {
    m_readers.push_back(
        std::make_unique<SnapshotReader>(m_connection, m_pool, SnapshotOfMimeData(*clipboard->mimeData())));
    QMetaObject::invokeMethod(this, &X11ClipboardWatch::TellFinished, Qt::QueuedConnection);
    return;
  }
  m_readers.push_back(std::make_unique<SnapshotReader>(m_connection, m_pool, time, m_limits));
  // Queued: the reader that finishes must not be deleted while its own code runs.
  connect(m_readers.back().get(), &SnapshotReader::Finished, this, &X11ClipboardWatch::TellFinished,
          Qt::QueuedConnection);
}

bool X11ClipboardWatch::FrontMayEchoNext() const {
  return m_readers.size() > 1 && m_readers.front()->WasSuperseded();
}

void X11ClipboardWatch::TellFinished() {
  if (m_telling) return;
  m_telling = true;
  while (!m_readers.empty() && m_readers.front()->IsFinished()) {
    if (FrontMayEchoNext()) {
      // Its contents were replaced while they were read, so the answers may have been the newer contents already.
      if (!m_readers[1]->IsFinished()) break;
      if (SameContents(m_readers[0]->Snapshot(), m_readers[1]->Snapshot())) {
        m_readers.pop_front();
        continue;
      }
    }
    const std::unique_ptr<SnapshotReader> reader = std::move(m_readers.front());
    m_readers.pop_front();
    if (!reader->HasContents()) continue;
    m_current = reader->Snapshot();
    if (m_onChange) m_onChange();
  }
  m_telling = false;
}

}  // namespace snipdeck

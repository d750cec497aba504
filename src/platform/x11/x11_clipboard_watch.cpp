#include "platform/x11/x11_clipboard_watch.h"

#include "platform/x11/own_contents.h"
#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr uint8_t kEventMask = 0x7F;  // the top bit only says that the event was sent by a client

std::vector<QByteArray> AllTargetNames() {
  std::vector<QByteArray> names{"CLIPBOARD", "INCR"};
  for (const auto targets : {ProtocolTargets(), SecrecyTargets(), RichTextTargets(), TextTargets(), ImageTargets(),
                             FileManagerTargets(), OtherReadTargets()}) {
    names.insert(names.end(), targets.begin(), targets.end());
  }
  return names;
}

bool SameContents(const ClipboardSnapshot& a, const ClipboardSnapshot& b) {
  return a.hasRichText == b.hasRichText && a.hasText == b.hasText && a.hasBitmap == b.hasBitmap &&
         a.hasFileList == b.hasFileList && a.text == b.text && a.richText.bytes == b.richText.bytes &&
         a.files == b.files;
}

}  // namespace

X11ClipboardWatch::X11ClipboardWatch(TransferLimits limits, QObject* parent)
    : QObject(parent), m_pool(m_connection), m_limits(limits) {
  m_isWorking = m_connection.ListenForOwners(false);
  if (!IsWorking()) return;
  m_connection.InternAll(AllTargetNames());
  connect(&m_connection, &XConnection::EventArrived, this, &X11ClipboardWatch::HandleEvent);
}

X11ClipboardWatch::~X11ClipboardWatch() = default;

void X11ClipboardWatch::StartWatching(Handler onChange) {
  m_onChange = std::move(onChange);
  if (!IsWorking()) return;
  m_connection.ListenForOwners(true);
  if (const xcb_window_t owner = m_connection.SelectionOwner()) BeginReading(XCB_CURRENT_TIME, OriginOf(owner, 0));
  m_connection.Flush();
}

void X11ClipboardWatch::StopWatching() {
  m_onChange = nullptr;
  if (!IsWorking()) return;
  m_connection.ListenForOwners(false);
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

CopyOrigin X11ClipboardWatch::OriginOf(xcb_window_t owner, xcb_timestamp_t time) const {
  CopyOrigin origin;
  origin.client = owner & ~xcb_get_setup(m_connection.Raw())->resource_id_mask;
  origin.time = time;
  return origin;
}

void X11ClipboardWatch::HandleEvent(const xcb_generic_event_t* event) {
  const uint8_t type = event->response_type & kEventMask;
  if (const auto* ownerChange = m_connection.AsOwnerChange(event)) {
    HandleOwnerChange(*ownerChange);
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
  BeginReading(event.selection_timestamp, OriginOf(event.owner, event.timestamp));
}

void X11ClipboardWatch::BeginReading(xcb_timestamp_t time, const CopyOrigin& origin) {
  if (const QMimeData* own = OwnMimeData()) {
    m_readers.push_back(std::make_unique<SnapshotReader>(m_connection, m_pool, SnapshotOfMimeData(*own), origin,
                                                         TargetsOfMimeData(*own)));
    QMetaObject::invokeMethod(this, &X11ClipboardWatch::TellFinished, Qt::QueuedConnection);
    return;
  }
  m_readers.push_back(std::make_unique<SnapshotReader>(m_connection, m_pool, time, origin, m_limits));
  // Queued: the reader that finishes must not be deleted while its own code runs.
  connect(m_readers.back().get(), &SnapshotReader::Finished, this, &X11ClipboardWatch::TellFinished,
          Qt::QueuedConnection);
}

X11ClipboardWatch::Verdict X11ClipboardWatch::JudgeFront() const {
  const SnapshotReader& front = *m_readers.front();
  if (!front.IsFinished()) return Verdict::Wait;
  if (!front.HasContents()) return Verdict::Drop;
  const auto changes = std::min(static_cast<std::size_t>(front.ChangesWhileRead()), m_readers.size() - 1);
  // Its contents were replaced while they were read, so the answers may have been newer contents already: secrets, or
  // what the next reader has too. A newer copy that was itself replaced before it told whether it is one may have been
  // one.
  for (std::size_t i = 1; i <= changes; ++i) {
    if (m_readers[i]->IsSecret()) return Verdict::Drop;
    if (!m_readers[i]->KnowsSecrecy()) return Verdict::Wait;
    if (!m_readers[i]->SecrecyIsItsOwn()) return Verdict::Drop;
  }
  if (changes > 0 && !m_readers[1]->IsFinished()) return Verdict::Wait;
  if (changes > 0 && SameContents(front.Snapshot(), m_readers[1]->Snapshot())) return Verdict::Drop;
  return m_echoes.IsEcho(front.Origin(), front.Snapshot()) ? Verdict::Drop : Verdict::Tell;
}

void X11ClipboardWatch::TellFinished() {
  if (m_telling) return;
  m_telling = true;
  while (!m_readers.empty()) {
    const Verdict verdict = JudgeFront();
    if (verdict == Verdict::Wait) break;
    const std::unique_ptr<SnapshotReader> reader = std::move(m_readers.front());
    m_readers.pop_front();
    if (verdict == Verdict::Drop) {
      // What cannot be read must not leave the copy before it to be pasted in its place.
      if (!reader->HasContents()) m_current = {};
      continue;
    }
    m_echoes.Told(reader->Origin(), reader->Snapshot());
    m_current = reader->Snapshot();
    if (m_onChange) m_onChange();
  }
  m_telling = false;
}

}  // namespace snipdeck

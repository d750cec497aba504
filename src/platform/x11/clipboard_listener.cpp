#include "platform/x11/clipboard_listener.h"

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

bool ClipboardListener::Open(std::uint32_t ownClient) {
  m_ownClient = ownClient;
  m_connection.emplace();
  m_pool.emplace(*m_connection);
  if (!m_connection->ListenForOwners(false)) return false;
  m_connection->InternAll(AllTargetNames());
  connect(&*m_connection, &XConnection::EventArrived, this, &ClipboardListener::HandleEvent);
  return true;
}

void ClipboardListener::Start() {
  m_isListening = true;
  m_connection->ListenForOwners(true);
  if (const xcb_window_t owner = m_connection->SelectionOwner()) BeginReading(XCB_CURRENT_TIME, OriginOf(owner, 0));
  m_connection->Flush();
}

void ClipboardListener::Stop() {
  m_isListening = false;
  m_connection->ListenForOwners(false);
  m_connection->Flush();
}

CopyOrigin ClipboardListener::OriginOf(xcb_window_t owner, xcb_timestamp_t time) const {
  CopyOrigin origin;
  origin.client = owner & ~xcb_get_setup(m_connection->Raw())->resource_id_mask;
  origin.time = time;
  return origin;
}

void ClipboardListener::HandleEvent(const xcb_generic_event_t* event) {
  const uint8_t type = event->response_type & kEventMask;
  if (const auto* ownerChange = m_connection->AsOwnerChange(event)) {
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

void ClipboardListener::HandleOwnerChange(const xcb_xfixes_selection_notify_event_t& event) {
  if (!m_isListening) return;
  if (event.owner == XCB_WINDOW_NONE) {
    if (!m_readers.empty()) m_readers.back()->OwnerGone();
    return;
  }
  for (const auto& reader : m_readers) reader->Supersede();
  BeginReading(event.selection_timestamp, OriginOf(event.owner, event.timestamp));
}

void ClipboardListener::BeginReading(xcb_timestamp_t time, const CopyOrigin& origin) {
  const bool isOwn = origin.client == m_ownClient;
  m_readers.push_back(isOwn ? std::make_unique<SnapshotReader>(*m_connection, *m_pool, origin)
                            : std::make_unique<SnapshotReader>(*m_connection, *m_pool, time, origin, m_limits));
  // Queued: the reader that finishes must not be deleted while its own code runs.
  connect(m_readers.back().get(), &SnapshotReader::Finished, this, &ClipboardListener::TellFinished,
          Qt::QueuedConnection);
  if (isOwn) emit WantsOwnContents();
}

void ClipboardListener::TakeOwnContents(const std::optional<ClipboardSnapshot>& contents,
                                        const std::vector<QByteArray>& targets) {
  const auto waiting =
      std::find_if(m_readers.begin(), m_readers.end(), [](const auto& reader) { return reader->WaitsForOwn(); });
  if (waiting != m_readers.end()) (*waiting)->TakeOwn(contents.value_or(ClipboardSnapshot{}), targets);
}

ClipboardListener::Verdict ClipboardListener::JudgeFront() const {
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

void ClipboardListener::TellFinished() {
  while (!m_readers.empty()) {
    const Verdict verdict = JudgeFront();
    if (verdict == Verdict::Wait) return;
    const std::unique_ptr<SnapshotReader> reader = std::move(m_readers.front());
    m_readers.pop_front();
    if (verdict == Verdict::Tell) {
      m_echoes.Told(reader->Origin(), reader->Snapshot());
      emit Told(reader->Snapshot());
    } else if (!reader->HasContents()) {
      // What cannot be read must not leave the copy before it to be pasted in its place.
      emit Told(std::nullopt);
    }
  }
}

}  // namespace snipdeck

#include "platform/x11/clipboard_handover.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/x11/event_pause.h"
#include "platform/x11/holder_process.h"

namespace snipdeck {

namespace {

// Together within a second.
constexpr int kHolderMs = 700;
constexpr int kManagerMs = 250;
// Between two looks whether it is done.
constexpr int kPollMs = 10;

template <typename Condition>
bool HandleEventsUntil(Condition condition, int milliseconds) {
  QElapsedTimer elapsed;
  elapsed.start();
  while (!condition()) {
    if (elapsed.elapsed() >= milliseconds) return false;
    HandleEventsFor(kPollMs);
  }
  return true;
}

OfferedData AllOf(const QMimeData& data) {
  OfferedData offers;
  for (const QByteArray& target : TargetsOfMimeData(data)) offers.emplace_back(target, BytesOfMimeData(data, target));
  return offers;
}

}  // namespace

Outcome ClipboardHandover::Run() {
  // The selected text ends with the program. Qt would ask the manager to keep it, too.
  QGuiApplication::clipboard()->clear(QClipboard::Selection);
  if (!OwnsClipboard()) return Done{};
  XConnection connection;
  if (!connection.IsValid()) return Failure{Failure::Kind::Unsupported, QStringLiteral("there is no display")};
  if (!IsOwnWindow(connection.SelectionOwner())) return Done{};
  const Outcome held = GiveToHolder(connection);
  if (held || GiveToManager(connection, kManagerMs)) return Done{};
  QGuiApplication::clipboard()->clear();
  return held;
}

Outcome ClipboardHandover::GiveToHolder(XConnection& connection) {
  QElapsedTimer elapsed;
  elapsed.start();
  const QMimeData* data = OwnMimeData();
  if (!data) return Done{};
  const OfferedData offers = AllOf(*data);
  const int left = kHolderMs - static_cast<int>(elapsed.elapsed());
  const Outcome started = HoldInProcess(m_holderProgram, offers, connection.SelectionOwner(), left);
  if (!started) return started;
  // While Qt takes itself for the owner it would ask the manager when it ends.
  HandleEventsUntil([] { return !OwnsClipboard(); }, kHolderMs - static_cast<int>(elapsed.elapsed()));
  return Done{};
}

bool ClipboardHandover::GiveToManager(XConnection& connection, int milliseconds) {
  if (connection.SelectionOwner("CLIPBOARD_MANAGER") == XCB_WINDOW_NONE) return false;
  bool isAnswered = false;
  bool isSaved = false;
  const xcb_atom_t property = connection.Atom("QM_SNIPDECK_SAVE");
  QObject::connect(&connection, &XConnection::EventArrived, &connection, [&](const xcb_generic_event_t* event) {
    if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY) return;
    isAnswered = true;
    isSaved = reinterpret_cast<const xcb_selection_notify_event_t*>(event)->property != XCB_ATOM_NONE;
  });
  // Without a list in the property the manager saves every target.
  xcb_convert_selection(connection.Raw(), connection.Window(), connection.Atom("CLIPBOARD_MANAGER"),
                        connection.Atom("SAVE_TARGETS"), property, XCB_CURRENT_TIME);
  connection.Flush();
  HandleEventsUntil([&] { return isAnswered; }, milliseconds);
  connection.disconnect();
  return isSaved;
}

}  // namespace snipdeck

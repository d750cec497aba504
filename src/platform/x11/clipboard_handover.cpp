#include "platform/x11/clipboard_handover.h"

#include <QElapsedTimer>
#include <QMimeData>

#include "platform/x11/event_pause.h"
#include "platform/x11/holder_process.h"

namespace snipdeck {

namespace {

constexpr int kTotalMs = 1000;
// A manager that does not take it leaves the holder time enough.
constexpr int kManagerMs = 400;
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
  if (!OwnsClipboard()) return Done{};
  QElapsedTimer elapsed;
  elapsed.start();
  XConnection connection;
  if (!connection.IsValid()) return Failure{Failure::Kind::Unsupported, QStringLiteral("there is no display")};
  if (!IsOwnWindow(connection.SelectionOwner())) return Done{};
  if (connection.SelectionOwner("CLIPBOARD_MANAGER") != XCB_WINDOW_NONE && GiveToManager(connection, kManagerMs)) {
    return Done{};
  }
  return GiveToHolder(connection, kTotalMs - static_cast<int>(elapsed.elapsed()));
}

bool ClipboardHandover::GiveToManager(XConnection& connection, int milliseconds) {
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

Outcome ClipboardHandover::GiveToHolder(XConnection& connection, int milliseconds) {
  QElapsedTimer elapsed;
  elapsed.start();
  const QMimeData* data = OwnMimeData();
  if (!data) return Done{};
  const OfferedData offers = AllOf(*data);
  const int left = milliseconds - static_cast<int>(elapsed.elapsed());
  const Outcome started = HoldInProcess(m_holderProgram, offers, connection.SelectionOwner(), left);
  if (!started) return started;
  // While Qt takes itself for the owner it would try the manager again when it ends, and wait far longer.
  HandleEventsUntil([] { return !OwnsClipboard(); }, milliseconds - static_cast<int>(elapsed.elapsed()));
  return Done{};
}

}  // namespace snipdeck

#include "platform/x11/foreign_contents.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr uint8_t kEventMask = 0x7F;  // the top bit only says that the event was sent by a client
// Real owners offer a few dozen targets; a list beyond this is cut.
constexpr qsizetype kMaxTargets = 1024;

bool IsProtocol(const QByteArray& target) {
  const auto names = ProtocolTargets();
  return std::any_of(names.begin(), names.end(), [&](const char* name) { return target == name; });
}

}  // namespace

ForeignContents::ForeignContents(WaitLimits limits, QObject* parent)
    : QObject(parent), m_pool(m_connection), m_limits(limits) {
  if (!m_connection.IsValid()) return;
  connect(&m_connection, &XConnection::EventArrived, this, &ForeignContents::HandleEvent);
  m_connection.ListenForOwners(true);
  m_connection.Flush();
}

const std::vector<QByteArray>& ForeignContents::Targets() {
  NoticeChanges();
  if (!m_targets) m_targets = ReadTargets();
  return *m_targets;
}

Result<QByteArray> ForeignContents::Read(const QByteArray& target) {
  // The list is that of the present owner, and has nothing in it that is secret.
  const std::vector<QByteArray>& targets = Targets();
  if (std::find(targets.begin(), targets.end(), target) != targets.end()) return Convert(target);
  return Failure{Failure::Kind::NotFound, QStringLiteral("%1: it is not there").arg(QString::fromLatin1(target))};
}

void ForeignContents::TakeAway() {
  if (!m_connection.IsValid()) return;
  xcb_set_selection_owner(m_connection.Raw(), XCB_WINDOW_NONE, m_connection.Atom("CLIPBOARD"), XCB_CURRENT_TIME);
  // The answer says that it is done.
  m_connection.SelectionOwner();
  m_connection.Flush();
}

void ForeignContents::NoticeChanges() {
  if (!m_connection.IsValid()) return;
  // The answer to a question brings every event before it along.
  m_connection.SelectionOwner();
  m_connection.DispatchEvents();
  if (!m_hasChanged) return;
  m_hasChanged = false;
  m_ownerIsSilent = false;
  m_targets.reset();
}

void ForeignContents::HandleEvent(const xcb_generic_event_t* event) {
  if (const auto* change = m_connection.AsOwnerChange(event)) {
    m_time = change->selection_timestamp;
    m_hasChanged = true;
  } else if ((event->response_type & kEventMask) == XCB_SELECTION_NOTIFY) {
    const auto& notice = *reinterpret_cast<const xcb_selection_notify_event_t*>(event);
    if (m_transfer && m_transfer->HandleNotify(notice)) return;
    // Too late: nobody will look at it.
    if (notice.property != XCB_ATOM_NONE) xcb_delete_property(m_connection.Raw(), notice.requestor, notice.property);
  } else if ((event->response_type & kEventMask) == XCB_PROPERTY_NOTIFY && m_transfer) {
    m_transfer->HandleProperty(*reinterpret_cast<const xcb_property_notify_event_t*>(event));
  }
}

std::vector<QByteArray> ForeignContents::ReadTargets() {
  const Result<QByteArray> list = Convert("TARGETS");
  if (!list) return {};
  const auto count = std::min(list.Value().size() / qsizetype{sizeof(xcb_atom_t)}, kMaxTargets);
  std::vector<xcb_atom_t> atoms(static_cast<size_t>(count));
  std::memcpy(atoms.data(), list.Value().constData(), atoms.size() * sizeof(xcb_atom_t));
  std::vector<QByteArray> targets = m_connection.Names(atoms);
  std::erase_if(targets, [](const QByteArray& target) { return target.isEmpty() || IsProtocol(target); });
  return IsSecret(targets) ? std::vector<QByteArray>() : targets;
}

bool ForeignContents::IsSecret(const std::vector<QByteArray>& targets) {
  for (const char* mark : SecrecyTargets()) {
    if (std::find(targets.begin(), targets.end(), mark) == targets.end()) continue;
    const Result<QByteArray> value = Convert(mark);
    if (!value || MeansSecret(mark, value.Value())) return true;
  }
  return false;
}

Result<QByteArray> ForeignContents::Convert(const QByteArray& target) {
  const auto failure = [&target](Failure::Kind kind, const QString& why) {
    return Failure{kind, QStringLiteral("%1: %2").arg(QString::fromLatin1(target), why)};
  };
  if (!m_connection.IsValid()) return failure(Failure::Kind::Unsupported, QStringLiteral("there is no display"));
  if (m_transfer) return failure(Failure::Kind::Refused, QStringLiteral("the clipboard is being read already"));
  if (m_ownerIsSilent) return failure(Failure::Kind::TimedOut, QStringLiteral("the owner does not answer"));
  SelectionTransfer transfer(m_connection, m_connection.Atom(target), m_pool.Take(), m_time, m_limits.maxBytes);
  m_transfer = &transfer;
  Await(transfer);
  m_transfer = nullptr;
  if (transfer.PropertyIsFree()) m_pool.GiveBack(transfer.Property());
  // What came after a change may be somebody else's, and secret.
  if (m_hasChanged) return failure(Failure::Kind::Refused, QStringLiteral("a newer copy came"));
  if (transfer.CurrentState() == SelectionTransfer::State::Done) return transfer.Bytes();
  return failure(m_ownerIsSilent ? Failure::Kind::TimedOut : Failure::Kind::Refused, transfer.FailureText());
}

void ForeignContents::Await(SelectionTransfer& transfer) {
  QEventLoop loop;
  QTimer wake;
  QElapsedTimer total;
  QElapsedTimer sinceProgress;
  total.start();
  sinceProgress.start();
  qint64 received = 0;
  m_connection.DispatchEvents();
  while (!transfer.IsFinished()) {
    const qint64 left = std::min(m_limits.stallMs - sinceProgress.elapsed(), m_limits.totalMs - total.elapsed());
    if (left <= 0) {
      m_ownerIsSilent = true;
      return transfer.Abandon(QStringLiteral("the owner does not answer"));
    }
    if (m_hasChanged) return transfer.Abandon(QStringLiteral("a newer copy came"));
    if (!m_connection.IsValid()) return transfer.Abandon(QStringLiteral("the display has gone"));
    wake.start(static_cast<int>(left));
    xcb_flush(m_connection.Raw());
    loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    m_connection.DispatchEvents();
    if (transfer.Bytes().size() - received < m_limits.progressBytes) continue;
    received = transfer.Bytes().size();
    sinceProgress.restart();
  }
}

}  // namespace snipdeck

#include "selection_owner.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <utility>

namespace snipdeck::e2e {

namespace {

// In which the next copy is made before the question for the last one is answered.
constexpr std::chrono::milliseconds kChangeTime{5};
constexpr std::size_t kPieceSize = 200'000;
constexpr std::uint32_t kHugeSize = std::numeric_limits<std::int32_t>::max();

void WriteAtoms(X11Connection& connection, const xcb_selection_request_event_t& request,
                const std::vector<xcb_atom_t>& atoms) {
  xcb_change_property(connection.Get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

}  // namespace

SelectionOwner::SelectionOwner(X11Connection& connection, const Options& options)
    : m_connection(connection), m_mode(options.mode), m_delay(options.delay), m_reports(options.reports) {}

void SelectionOwner::BeginTake(const std::vector<Offer>& offers, std::function<void()> beforeTaking) {
  m_nextContents.clear();
  for (const Offer& offer : offers) {
    m_nextContents.push_back(
        {m_connection.Atom(offer.target), offer.target, std::make_shared<const std::string>(offer.data)});
  }
  m_beforeTaking = std::move(beforeTaking);
  // Only an event carries the server's time; this changes nothing and brings one.
  xcb_change_property(m_connection.Get(), XCB_PROP_MODE_APPEND, m_connection.Window(), XCB_ATOM_WM_NAME,
                      XCB_ATOM_STRING, 8, 0, nullptr);
  xcb_flush(m_connection.Get());
}

void SelectionOwner::FinishTake(xcb_timestamp_t time) {
  m_contents = std::move(m_nextContents);
  m_takenAt = time;
  m_wantsChange = false;
  m_isLost = false;
  const xcb_atom_t clipboard = m_connection.Atom("CLIPBOARD");
  std::exchange(m_beforeTaking, nullptr)();
  xcb_set_selection_owner(m_connection.Get(), m_connection.Window(), clipboard, time);
  // Once the server has answered, the selection is taken even if this process ends at once.
  const auto question = xcb_get_selection_owner(m_connection.Get(), clipboard);
  const XcbPtr<xcb_get_selection_owner_reply_t> answer(
      xcb_get_selection_owner_reply(m_connection.Get(), question, nullptr));
  std::puts(answer && answer->owner == m_connection.Window() ? "owns" : "lost");
  std::fflush(stdout);
}

void SelectionOwner::Work() {
  while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.Get())}) HandleEvent(*event);
  const Clock::time_point now = Clock::now();
  while (!m_lateAnswers.empty() && m_lateAnswers.front().due <= now) {
    Answer(m_lateAnswers.front().request);
    m_lateAnswers.pop_front();
  }
  for (IncrTransfer& transfer : m_transfers) transfer.Advance(now);
  m_transfers.remove_if([](const IncrTransfer& transfer) { return transfer.IsDone(); });
  xcb_flush(m_connection.Get());
}

Clock::time_point SelectionOwner::Due() const {
  Clock::time_point due = m_lateAnswers.empty() ? Clock::time_point::max() : m_lateAnswers.front().due;
  for (const IncrTransfer& transfer : m_transfers) due = std::min(due, transfer.Due());
  return due;
}

void SelectionOwner::HandleEvent(const xcb_generic_event_t& event) {
  switch (event.response_type & 0x7F) {
    case XCB_SELECTION_CLEAR:
      m_isLost = true;
      break;
    case XCB_SELECTION_REQUEST:
      HandleRequest(reinterpret_cast<const xcb_selection_request_event_t&>(event));
      break;
    case XCB_PROPERTY_NOTIFY:
      HandlePropertyChange(reinterpret_cast<const xcb_property_notify_event_t&>(event));
      break;
    default:  // errors among them: a requestor may be gone before its answer
      break;
  }
}

void SelectionOwner::HandlePropertyChange(const xcb_property_notify_event_t& event) {
  if (event.window == m_connection.Window()) {
    if (m_beforeTaking) FinishTake(event.time);
    return;
  }
  if (event.state != XCB_PROPERTY_DELETE) return;
  for (IncrTransfer& transfer : m_transfers) {
    if (transfer.IsFor(event.window, event.atom)) transfer.OnPropertyDeleted();
  }
}

void SelectionOwner::HandleRequest(const xcb_selection_request_event_t& request) {
  if (m_mode == Mode::Hang) return;
  if (m_mode == Mode::Change && request.target != m_connection.Atom("TARGETS")) {
    m_wantsChange = true;
    m_lateAnswers.push_back({Clock::now() + kChangeTime, request});
  } else if (m_mode == Mode::Slow) {
    m_lateAnswers.push_back({Clock::now() + m_delay, request});
  } else {
    Answer(request);
  }
}

void SelectionOwner::Answer(const xcb_selection_request_event_t& request) {
  // An event on the wire has 32 bytes, more than the structure of this one.
  union {
    xcb_selection_notify_event_t notice;
    std::array<char, 32> wire;
  } message{};
  message.notice.response_type = XCB_SELECTION_NOTIFY;
  message.notice.time = request.time;
  message.notice.requestor = request.requestor;
  message.notice.selection = request.selection;
  message.notice.target = request.target;
  message.notice.property = WriteAnswer(request) ? request.property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  xcb_send_event(m_connection.Get(), 0, request.requestor, 0, message.wire.data());
  if (m_reports && message.notice.property != XCB_ATOM_NONE) Report(request.target);
}

void SelectionOwner::Report(xcb_atom_t target) const {
  for (const Content& content : m_contents) {
    if (content.target == target) std::printf("gave %s\n", content.name.c_str());
  }
  std::fflush(stdout);
}

bool SelectionOwner::WriteAnswer(const xcb_selection_request_event_t& request) {
  if (request.target == m_connection.Atom("TARGETS")) {
    WriteTargets(request);
    return true;
  }
  if (m_mode == Mode::Refuse) return false;
  if (request.target == m_connection.Atom("TIMESTAMP")) {
    xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        XCB_ATOM_INTEGER, 32, 1, &m_takenAt);
    return true;
  }
  const auto content = std::find_if(m_contents.begin(), m_contents.end(),
                                    [&](const Content& candidate) { return candidate.target == request.target; });
  if (content == m_contents.end()) return false;
  WriteData(request, content->data);
  return true;
}

void SelectionOwner::WriteTargets(const xcb_selection_request_event_t& request) {
  std::vector<xcb_atom_t> targets{m_connection.Atom("TARGETS"), m_connection.Atom("TIMESTAMP")};
  for (const Content& content : m_contents) targets.push_back(content.target);
  WriteAtoms(m_connection, request, targets);
}

void SelectionOwner::WriteData(const xcb_selection_request_event_t& request, const IncrTransfer::Data& data) {
  if (m_mode == Mode::Lie) {
    WriteAtoms(m_connection, request, {0xFFFFFFFF, 0, request.target});
  } else if (SendsInPieces(data)) {
    m_transfers.emplace_back(m_connection, request, data, PlanFor(data));
  } else {
    xcb_change_property(m_connection.Get(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, request.target,
                        8, static_cast<std::uint32_t>(data->size()), data->data());
  }
}

bool SelectionOwner::SendsInPieces(const IncrTransfer::Data& data) const {
  return data->size() > kPieceSize || m_mode == Mode::Die || m_mode == Mode::AnnounceHuge || m_mode == Mode::Trickle;
}

TransferPlan SelectionOwner::PlanFor(const IncrTransfer::Data& data) const {
  TransferPlan plan{.announced = static_cast<std::uint32_t>(data->size()), .pieceSize = kPieceSize};
  if (m_mode == Mode::Slow || m_mode == Mode::Trickle) plan.pause = m_delay;
  if (m_mode == Mode::Die) plan.pieceSize = std::max<std::size_t>(1, data->size() / 2);
  if (m_mode == Mode::AnnounceHuge || m_mode == Mode::Trickle) plan.announced = kHugeSize;
  if (m_mode == Mode::Trickle) plan.pieceSize = 1;
  plan.diesAfterFirstPiece = m_mode == Mode::Die;
  plan.sendsNothing = m_mode == Mode::AnnounceHuge;
  return plan;
}

}  // namespace snipdeck::e2e

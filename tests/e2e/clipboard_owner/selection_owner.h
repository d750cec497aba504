#pragma once

#include <deque>
#include <functional>
#include <list>
#include <vector>

#include "incr_transfer.h"
#include "options.h"
#include "x11_connection.h"

namespace snipdeck::e2e {

/// Owns the CLIPBOARD selection and answers for it in the manner of its mode.
class SelectionOwner {
 public:
  SelectionOwner(X11Connection& connection, const Options& options);

  /// Asks the server for the time; when it comes, `beforeTaking` runs and the selection is taken with these offers.
  void BeginTake(const std::vector<Offer>& offers, std::function<void()> beforeTaking);
  /// Handles every event that has arrived and sends everything that is due.
  void Work();
  /// When Work() has something to do without an event.
  Clock::time_point Due() const;
  /// The last BeginTake() still waits for the time.
  bool IsTaking() const { return m_beforeTaking != nullptr; }
  /// In mode Change, data has been asked for since the last take.
  bool WantsChange() const { return m_wantsChange; }
  /// Somebody else has taken the selection since.
  bool IsLost() const { return m_isLost; }

 private:
  struct Content {
    xcb_atom_t target;
    std::string name;
    IncrTransfer::Data data;
  };
  struct LateAnswer {
    Clock::time_point due;
    xcb_selection_request_event_t request;
  };

  void HandleEvent(const xcb_generic_event_t& event);
  void HandlePropertyChange(const xcb_property_notify_event_t& event);
  void HandleRequest(const xcb_selection_request_event_t& request);
  void FinishTake(xcb_timestamp_t time);
  void Answer(const xcb_selection_request_event_t& request);
  void Report(xcb_atom_t target) const;
  bool WriteAnswer(const xcb_selection_request_event_t& request);
  void WriteTargets(const xcb_selection_request_event_t& request);
  void WriteData(const xcb_selection_request_event_t& request, const IncrTransfer::Data& data);
  TransferPlan PlanFor(const IncrTransfer::Data& data) const;
  bool SendsInPieces(const IncrTransfer::Data& data) const;

  X11Connection& m_connection;
  Mode m_mode;
  std::chrono::milliseconds m_delay;
  bool m_reports;
  bool m_wantsChange = false;
  std::vector<Content> m_contents;
  std::vector<Content> m_nextContents;
  std::function<void()> m_beforeTaking;
  xcb_timestamp_t m_takenAt = XCB_CURRENT_TIME;
  bool m_isLost = false;
  std::deque<LateAnswer> m_lateAnswers;
  std::list<IncrTransfer> m_transfers;
};

}  // namespace snipdeck::e2e

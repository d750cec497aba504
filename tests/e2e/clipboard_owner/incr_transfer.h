#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "x11_connection.h"

namespace snipdeck::e2e {

using Clock = std::chrono::steady_clock;

/// How one long answer is sent.
struct TransferPlan {
  /// Bytes that the first message promises.
  std::uint32_t announced = 0;
  std::size_t pieceSize = 0;
  /// Wait before each piece.
  std::chrono::milliseconds pause{0};
  /// The process ends after the first piece.
  bool diesAfterFirstPiece = false;
  /// No piece ever comes.
  bool sendsNothing = false;
};

/// One answer in pieces: each follows when the requestor has deleted the one before.
class IncrTransfer {
 public:
  using Data = std::shared_ptr<const std::string>;
  /// Writes the announcement to the requestor's property; the caller then sends the notice.
  IncrTransfer(X11Connection& connection, const xcb_selection_request_event_t& request, Data data, TransferPlan plan);

  bool IsFor(xcb_window_t window, xcb_atom_t property) const { return window == m_window && property == m_property; }
  /// The requestor has taken what lay in the property.
  void OnPropertyDeleted();
  /// Sends the piece that is due at `now`, if one is.
  void Advance(Clock::time_point now);
  /// When the next piece is due; Clock::time_point::max() when it waits for the requestor.
  Clock::time_point Due() const { return m_due; }
  bool IsDone() const { return m_isDone; }

 private:
  void SendPiece();

  X11Connection& m_connection;
  xcb_window_t m_window;
  xcb_atom_t m_property;
  xcb_atom_t m_type;
  Data m_data;
  TransferPlan m_plan;
  std::size_t m_sent = 0;
  Clock::time_point m_due = Clock::time_point::max();
  bool m_isDone = false;
};

}  // namespace snipdeck::e2e

#pragma once

#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <xcb/xcb.h>

#include "platform/x11/holder/payload.h"

namespace snipdeck::holder {

struct Free {
  void operator()(void* memory) const { free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

/// Owns the clipboard with fixed contents, and answers for them until somebody else takes it.
class HeldSelection {
 public:
  explicit HeldSelection(const Payload& payload);
  ~HeldSelection();
  HeldSelection(const HeldSelection&) = delete;
  HeldSelection& operator=(const HeldSelection&) = delete;

  /// Takes the clipboard from the window that the payload names; false if that no longer owns it.
  bool Take();
  /// Answers until the clipboard is lost or the display has gone.
  void Serve();

 private:
  /// An answer on its way in pieces; each follows when the one before has been fetched.
  struct Transfer {
    xcb_window_t window;
    xcb_atom_t property;
    xcb_atom_t target;
    const std::string* data;
    std::size_t sent;
  };

  xcb_atom_t Atom(const std::string& name);
  void CreateWindow();
  void Answer(const xcb_selection_request_event_t& request);
  bool Write(xcb_window_t window, xcb_atom_t property, xcb_atom_t target);
  bool WriteMultiple(const xcb_selection_request_event_t& request);
  void WriteTargets(xcb_window_t window, xcb_atom_t property);
  void BeginTransfer(xcb_window_t window, xcb_atom_t property, xcb_atom_t target, const std::string& data);
  void ContinueTransfer(const xcb_property_notify_event_t& event);

  xcb_connection_t* m_connection;
  xcb_window_t m_window = XCB_WINDOW_NONE;
  const Payload& m_payload;
  std::unordered_map<xcb_atom_t, const std::string*> m_data;
  std::vector<xcb_atom_t> m_order;
  xcb_timestamp_t m_takenAt = XCB_CURRENT_TIME;
  std::list<Transfer> m_transfers;
};

}  // namespace snipdeck::holder

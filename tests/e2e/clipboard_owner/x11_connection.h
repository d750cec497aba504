#pragma once

#include <map>
#include <memory>
#include <string>

#include <xcb/xcb.h>

namespace snipdeck::e2e {

/// What xcb hands out is freed with free().
struct FreeDeleter {
  void operator()(void* memory) const;
};
template <typename T>
using XcbPtr = std::unique_ptr<T, FreeDeleter>;

/// A connection to the display that DISPLAY names, with one invisible window that hears of changes of its properties.
class X11Connection {
 public:
  /// Throws std::runtime_error if there is no display.
  X11Connection();
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  xcb_connection_t* Get() const { return m_connection; }
  xcb_window_t Window() const { return m_window; }
  xcb_atom_t Atom(const std::string& name);

 private:
  xcb_connection_t* m_connection;
  xcb_window_t m_window;
  std::map<std::string, xcb_atom_t> m_atoms;
};

}  // namespace snipdeck::e2e

#pragma once

#include <memory>
#include <vector>

#include <QByteArray>
#include <QString>

#include <xcb/xcb.h>

namespace snipdeck {

/// The desktop as its window manager describes it in properties of windows, over a connection made for the question and
/// closed with the object: such questions are rare, and waiting here never disturbs the clipboard. Properties that are
/// missing or of another type count as empty.
class X11Desktop {
 public:
  /// Connects to the server that DISPLAY names; without one, everything is empty and nothing happens.
  X11Desktop();

  xcb_window_t Root() const { return m_root; }
  xcb_atom_t Atom(const QByteArray& name) const;
  /// A list of windows, atoms or numbers; at most 65,536 of them.
  std::vector<std::uint32_t> Values(xcb_window_t window, const QByteArray& property, xcb_atom_t type) const;
  /// A text in UTF-8 or Latin-1; at most 4,096 bytes of it.
  QString Text(xcb_window_t window, const QByteArray& property) const;
  /// Whether the window manager says that it understands a message.
  bool Supports(const QByteArray& message) const;
  /// Sends the window manager a message of one number about the root window, and waits until the server has it.
  void Tell(const QByteArray& message, std::uint32_t value) const;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  struct Property {
    xcb_atom_t type = XCB_ATOM_NONE;
    int itemBits = 0;
    QByteArray bytes;
  };

  Property Read(xcb_window_t window, const QByteArray& name, std::uint32_t mostWords) const;

  std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
  xcb_window_t m_root = XCB_WINDOW_NONE;
};

}  // namespace snipdeck

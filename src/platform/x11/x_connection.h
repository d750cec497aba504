#pragma once

#include <memory>
#include <vector>

#include <QHash>
#include <QObject>

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

class QSocketNotifier;

namespace snipdeck {

/// A connection to the X server of our own, beside Qt's: what arrives here never waits for Qt's clipboard code, which
/// blocks on a hung owner. Events come through the Qt event loop on the thread that made the object.
class XConnection : public QObject {
  Q_OBJECT

 public:
  /// Connects to the server that DISPLAY names; IsValid() tells whether that went well.
  explicit XConnection(QObject* parent = nullptr);
  ~XConnection() override;

  bool IsValid() const;
  xcb_connection_t* Raw() const { return m_connection.get(); }
  /// An invisible window that takes part in transfers; it lives as long as the connection.
  xcb_window_t Window() const { return m_window; }
  /// The atom of that name; one round trip the first time. 0 on a broken connection.
  xcb_atom_t Atom(const QByteArray& name);
  /// As Atom for many names at once, in one round trip.
  void InternAll(const std::vector<QByteArray>& names);
  /// The names of the atoms, in one round trip for those not known yet. Empty for what is no atom, and for a name of
  /// more than kLongestName bytes.
  std::vector<QByteArray> Names(const std::vector<xcb_atom_t>& atoms);
  static constexpr int kLongestName = 1024;

  /// Asks for an event at each change of the clipboard's owner, or for none. False where the server has no XFixes.
  bool ListenForOwners(bool isOn);
  /// The event that ListenForOwners() asked for, if `event` is one; else null.
  const xcb_xfixes_selection_notify_event_t* AsOwnerChange(const xcb_generic_event_t* event) const;
  /// The window that owns the clipboard now, 0 for none; one round trip.
  xcb_window_t SelectionOwner(const QByteArray& selection = "CLIPBOARD");

  void Flush();
  /// Handles what has arrived.
  void DispatchEvents();

 signals:
  void EventArrived(const xcb_generic_event_t* event);

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  void CreateWindow();
  uint8_t InitXFixes() const;
  void FetchNames(const std::vector<xcb_atom_t>& atoms);

  std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
  xcb_window_t m_window = XCB_WINDOW_NONE;
  QSocketNotifier* m_notifier = nullptr;
  uint8_t m_firstFixesEvent = 0;
  QHash<QByteArray, xcb_atom_t> m_atoms;
  QHash<xcb_atom_t, QByteArray> m_names;
  bool m_dispatching = false;
};

/// Frees what xcb hands out with malloc.
struct FreeReply {
  void operator()(void* reply) const { free(reply); }
};
template <typename Reply>
using XReply = std::unique_ptr<Reply, FreeReply>;

}  // namespace snipdeck

#pragma once

#include <memory>
#include <vector>

#include <QHash>
#include <QObject>

#include <xcb/xcb.h>

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
  void Flush();

 signals:
  void EventArrived(const xcb_generic_event_t* event);

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  void CreateWindow();
  void DispatchEvents();

  std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
  xcb_window_t m_window = XCB_WINDOW_NONE;
  QSocketNotifier* m_notifier = nullptr;
  QHash<QByteArray, xcb_atom_t> m_atoms;
  bool m_dispatching = false;
};

/// Frees what xcb hands out with malloc.
struct FreeReply {
  void operator()(void* reply) const { free(reply); }
};
template <typename Reply>
using XReply = std::unique_ptr<Reply, FreeReply>;

}  // namespace snipdeck

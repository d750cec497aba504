#pragma once

#include <cstdint>

#include <QFile>

namespace snipdeck {

/// Sees to it that the program runs once in its folder. The system itself holds the lock and lets it go when the
/// program ends, however it ends: a crash leaves nothing that would stand in the way of the next start, and of two
/// programs that start in the same instant exactly one gets it.
class SingleInstance {
 public:
  /// Takes the lock in that folder, for the life of this object. Where the folder cannot hold a lock at all, the start
  /// goes on as if it were the only one.
  explicit SingleInstance(const QString& folder);

  /// False while another instance runs.
  bool IsFirst() const { return m_isFirst; }
  /// Writes down for later instances which window to bring forward.
  void AnnounceWindow(const QByteArray& display, std::uint32_t window);
  /// Brings the window of the instance that holds the lock to the front; does nothing while that one has not shown it
  /// yet.
  void RaisePreviousInstance();

 private:
  QFile m_file;
  bool m_isFirst;
};

}  // namespace snipdeck

#pragma once

#include <functional>

#include <QObject>

namespace snipdeck {

/// Turns the system's request to end (SIGTERM, SIGHUP, SIGINT) into a call on the thread of the window, between two
/// events. One object at a time; a system without such signals never calls.
class TerminationSignals : public QObject {
  Q_OBJECT

 public:
  explicit TerminationSignals(std::function<void()> onRequest, QObject* parent = nullptr);
  ~TerminationSignals() override;

 private:
  void Receive();

  std::function<void()> m_onRequest;
  int m_readEnd = -1;
};

}  // namespace snipdeck

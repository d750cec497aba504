#include "app/termination_signals.h"

#ifndef Q_OS_WIN

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace snipdeck {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

// A signal handler may do little more than write to a pipe.
int g_writeEnd = -1;

void Tell(int) {
  const char any = 0;
  [[maybe_unused]] const auto written = write(g_writeEnd, &any, 1);
}

void HandleWith(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : kSignals) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    // Whoever starts a program with a signal ignored, as nohup does, means it.
    if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> onRequest, QObject* parent)
    : QObject(parent), m_onRequest(std::move(onRequest)) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  m_readEnd = ends[0];
  g_writeEnd = ends[1];
  auto* notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::Receive);
  HandleWith(Tell);
}

TerminationSignals::~TerminationSignals() {
  if (m_readEnd < 0) return;
  HandleWith(SIG_DFL);
  close(m_readEnd);
  close(g_writeEnd);
  g_writeEnd = -1;
}

void TerminationSignals::Receive() {
  char any[16];
  while (read(m_readEnd, any, sizeof any) > 0) {
  }
  m_onRequest();
}

}  // namespace snipdeck

#else

namespace snipdeck {

TerminationSignals::TerminationSignals(std::function<void()> onRequest, QObject* parent)
    : QObject(parent), m_onRequest(std::move(onRequest)) {}
TerminationSignals::~TerminationSignals() = default;
void TerminationSignals::Receive() {}

}  // namespace snipdeck

#endif

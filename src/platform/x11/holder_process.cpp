#include "platform/x11/holder_process.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QFile>

#include "platform/x11/holder/payload.h"

namespace snipdeck {

namespace {

class Descriptor {
 public:
  explicit Descriptor(int number) : m_number(number) {}
  ~Descriptor() { close(m_number); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return m_number; }

 private:
  int m_number;
};

bool WaitUntilReady(int descriptor, short event, const QDeadlineTimer& deadline) {
  pollfd waiting{descriptor, event, 0};
  return poll(&waiting, 1, static_cast<int>(deadline.remainingTime())) == 1;
}

bool SendAll(int descriptor, const std::string& bytes, const QDeadlineTimer& deadline) {
  size_t sent = 0;
  while (sent < bytes.size()) {
    if (deadline.hasExpired() || !WaitUntilReady(descriptor, POLLOUT, deadline)) return false;
    // No signal when the other side has gone.
    const ssize_t count = send(descriptor, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && errno != EAGAIN && errno != EINTR) return false;
    if (count > 0) sent += static_cast<size_t>(count);
  }
  return true;
}

bool ReceiveAnswer(int descriptor, const QDeadlineTimer& deadline) {
  char answer = 0;
  return WaitUntilReady(descriptor, POLLIN, deadline) && recv(descriptor, &answer, 1, MSG_DONTWAIT) == 1 &&
         answer == holder::kTaken;
}

/// Starts the program in a session of its own, with the socket as its standard input and output.
bool Start(const QString& program, int socket) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, socket, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  QByteArray path = QFile::encodeName(program);
  char* arguments[] = {path.data(), nullptr};
  pid_t process = 0;
  const int error = posix_spawn(&process, path.constData(), &actions, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0;
}

std::string PayloadOf(const OfferedData& data, xcb_window_t owner) {
  holder::Payload payload;
  payload.expectedOwner = owner;
  for (const auto& [target, bytes] : data) payload.offers.emplace_back(target.toStdString(), bytes.toStdString());
  return holder::Write(payload);
}

}  // namespace

Outcome HoldInProcess(const QString& program, const OfferedData& data, xcb_window_t owner, int milliseconds) {
  const QDeadlineTimer deadline(std::max(milliseconds, 0));
  const auto failure = [](const char* why) { return Failure{Failure::Kind::Other, QString::fromLatin1(why)}; };
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return failure("no socket");
  const Descriptor ours(ends[0]);
  {
    const Descriptor theirs(ends[1]);
    if (!Start(program, theirs.Number())) return failure("the program that keeps the clipboard does not start");
  }
  if (!SendAll(ours.Number(), PayloadOf(data, owner), deadline)) return failure("it does not take the contents");
  if (!ReceiveAnswer(ours.Number(), deadline)) return failure("it did not get the clipboard");
  return Done{};
}

}  // namespace snipdeck

#include "app/single_instance.h"

#include "app/program_folder.h"
#include "platform/x11/raise_window.h"

#ifdef Q_OS_WIN
#include <io.h>

#include <qt_windows.h>
#else
#include <cerrno>
#include <sys/file.h>
#endif

namespace snipdeck {

namespace {

/// False only where another process holds the lock. It is tied to the open file, which Qt does not pass on to programs
/// that are started from here, so that none of them keeps it.
bool Lock(const QFile& file) {
#ifdef Q_OS_WIN
  OVERLAPPED farBehindTheText{};
  farBehindTheText.Offset = 0x10000000;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
  return LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &farBehindTheText) ||
         GetLastError() != ERROR_LOCK_VIOLATION;
#else
  int outcome = 0;
  do {
    outcome = flock(file.handle(), LOCK_EX | LOCK_NB);
  } while (outcome != 0 && errno == EINTR);
  return outcome == 0 || errno != EWOULDBLOCK;
#endif
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder)
    : m_file(FileInFolder(folder, QStringLiteral("QM_Snipdeck.lock"))), m_isFirst(true) {
  const bool opened =
      m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  if (!opened) return;
  m_isFirst = Lock(m_file);
  if (m_isFirst) m_file.resize(0);
}

void SingleInstance::AnnounceWindow(const QByteArray& display, std::uint32_t window) {
  if (!m_isFirst || !m_file.isOpen()) return;
  m_file.resize(0);
  m_file.seek(0);
  m_file.write(display + '\n' + QByteArray::number(window) + '\n');
}

void SingleInstance::RaisePreviousInstance() {
  m_file.seek(0);
  const QByteArray display = m_file.readLine().trimmed();
  bool isNumber = false;
  const std::uint32_t window = m_file.readLine().trimmed().toUInt(&isNumber);
  if (isNumber) RaiseWindow(display, window);
}

}  // namespace snipdeck

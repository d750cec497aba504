#include "platform/x11/x11_shell.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QProcess>
#include <QUrl>

#include "platform/x11/x11_desktop.h"

namespace snipdeck {

namespace {

constexpr int kFileManagerPatience = 5000;  // milliseconds; it may have to be started first

/// The word without the quotes of a command line.
QString Word(const QString& argument) {
  const bool quoted = argument.size() >= 2 && argument.startsWith(u'"') && argument.endsWith(u'"');
  return quoted ? argument.mid(1, argument.size() - 2) : argument;
}

Outcome Start(const QString& program, const QStringList& words) {
  if (!program.isEmpty() && QProcess::startDetached(program, words, QDir::currentPath())) return Done{};
  return Failure{Failure::Kind::Refused, QStringLiteral("%1 could not be started").arg(program)};
}

QDBusPendingCall AskFileManager(const QDBusConnection& bus, const QString& method, const QString& path) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), method);
  call << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
  return bus.asyncCall(call, kFileManagerPatience);
}

Outcome OpenAsTheUserLikes(const QString& folder) {
  return Start(QStringLiteral("xdg-open"), {folder});
}

}  // namespace

Outcome X11Shell::StartProgram(const QString& program, const QString& argument) {
  return Start(program, argument.isEmpty() ? QStringList() : QStringList(Word(argument)));
}

Outcome X11Shell::ExploreFolder(const QString& folder, WindowHandle) {
  // A path of its own form, so that neither the address nor xdg-open takes a relative one for an option.
  const QString path = QDir(folder).absolutePath();
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return OpenAsTheUserLikes(path);
  auto* answer = new QDBusPendingCallWatcher(AskFileManager(bus, QStringLiteral("ShowFolders"), path), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [path](QDBusPendingCallWatcher* finished) {
    if (finished->isError()) OpenAsTheUserLikes(path);
    finished->deleteLater();
  });
  return Done{};
}

void X11Shell::ShowProperties(const QString& path, WindowHandle, std::function<void()> otherwise) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return otherwise();
  const QString whole = QDir(path).absolutePath();
  auto* answer = new QDBusPendingCallWatcher(AskFileManager(bus, QStringLiteral("ShowItemProperties"), whole), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this,
          [otherwise = std::move(otherwise)](QDBusPendingCallWatcher* finished) {
            if (finished->isError()) otherwise();
            finished->deleteLater();
          });
}

Outcome X11Shell::ToggleDesktop() {
  const QByteArray message = "_NET_SHOWING_DESKTOP";
  const X11Desktop desktop;
  if (!desktop.Supports(message))
    return Failure{Failure::Kind::Unsupported, QStringLiteral("The window manager does not show the desktop")};
  const auto showing = desktop.Values(desktop.Root(), message, XCB_ATOM_CARDINAL);
  desktop.Tell(message, !showing.empty() && showing.front() != 0 ? 0 : 1);
  return Done{};
}

}  // namespace snipdeck

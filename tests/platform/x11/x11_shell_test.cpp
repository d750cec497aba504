#include "platform/x11/x11_shell.h"

#include <QDBusConnection>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QWidget>

#include "platform/x11/x11_desktop.h"
#include "platform/x11/x11_window_list.h"

namespace snipdeck {

/// A file manager on the session bus that writes down what it is asked to show.
class FileManager : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

 public:
  QStringList shown;

 public slots:
  void ShowFolders(const QStringList& addresses, const QString&) { shown += addresses; }
};

/// The desktop that DISPLAY and the session bus name: a window manager that keeps the usual properties, and no file
/// manager.
class X11ShellTest : public QObject {
  Q_OBJECT

 private:
  static QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  /// A program that writes its arguments, one a line, beside itself.
  static QString Script(const QTemporaryDir& folder, const QString& name) {
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("%s cannot be written", qPrintable(path));
    // Written under another name first, so that whoever waits for the file finds it whole.
    file.write("#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > \"$0.new\"\nmv \"$0.new\" \"$0.arguments\"\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
  }
  static bool IsShowingDesktop() {
    const X11Desktop desktop;
    const auto showing = desktop.Values(desktop.Root(), "_NET_SHOWING_DESKTOP", XCB_ATOM_CARDINAL);
    return !showing.empty() && showing.front() == 1;
  }
  static const TopLevelWindow* Named(const std::vector<TopLevelWindow>& windows, const QString& title) {
    for (const TopLevelWindow& window : windows) {
      if (window.title == title) return &window;
    }
    return nullptr;
  }
  static bool IsListed(const QString& title) { return Named(X11WindowList().TopLevelWindows(), title); }

 private slots:
  void ArgumentReachesTheProgramAsItStands_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QByteArray>("received");
    QTest::newRow("none") << QString() << QByteArray("0\n");
    QTest::newRow("plain") << "/tmp/texts" << QByteArray("1\n/tmp/texts\n");
    QTest::newRow("quoted") << "\"/tmp/my texts\"" << QByteArray("1\n/tmp/my texts\n");
    QTest::newRow("signs of a shell") << "$(touch\tx);`id`|&*~" << QByteArray("1\n$(touch\tx);`id`|&*~\n");
  }
  void ArgumentReachesTheProgramAsItStands() {
    QFETCH(QString, argument);
    QTemporaryDir folder;
    const QString program = Script(folder, QStringLiteral("a program"));
    QVERIFY(X11Shell().StartProgram(program, argument));
    QTRY_VERIFY(QFile::exists(program + ".arguments"));
    QTEST(Contents(program + ".arguments"), "received");
  }

  void WhatCannotStartIsTold() {
    X11Shell shell;
    QVERIFY(!shell.StartProgram(QString(), QString()));
    QVERIFY(!shell.StartProgram(QStringLiteral("/nowhere/at all"), QString()));
  }

  void FolderOpensInTheFileManager() {
    FileManager manager;
    QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("file manager"));
    if (!other.isConnected()) QSKIP("no session bus");
    QVERIFY(other.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                                 QDBusConnection::ExportAllSlots));
    QVERIFY(other.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    X11Shell shell;
    QVERIFY(shell.ExploreFolder(QStringLiteral("/tmp/my texts#1"), 0));
    QTRY_COMPARE(manager.shown, QStringList(QStringLiteral("file:///tmp/my%20texts%231")));
    QVERIFY(other.unregisterService(QStringLiteral("org.freedesktop.FileManager1")));
    QDBusConnection::disconnectFromBus(QStringLiteral("file manager"));
  }

  void FolderOpensWithoutAFileManagerOnTheBus() {
    QTemporaryDir folder;
    const QString opener = Script(folder, QStringLiteral("xdg-open"));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);
    X11Shell shell;
    QVERIFY(shell.ExploreFolder(folder.path(), 0));
    QTRY_VERIFY(QFile::exists(opener + ".arguments"));
    qputenv("PATH", path);
    QCOMPARE(Contents(opener + ".arguments"), "1\n" + folder.path().toLocal8Bit() + '\n');
  }

  void DesktopShowsAndGoesAgain() {
    if (!X11Desktop().Supports("_NET_SHOWING_DESKTOP")) QSKIP("the window manager does not show the desktop");
    X11Shell shell;
    QVERIFY(!IsShowingDesktop());
    QVERIFY(shell.ToggleDesktop());
    QTRY_VERIFY(IsShowingDesktop());
    QVERIFY(shell.ToggleDesktop());
    QTRY_VERIFY(!IsShowingDesktop());
  }

  void WindowsAreListedAndRaised() {
    if (!X11Desktop().Supports("_NET_CLIENT_LIST")) QSKIP("the window manager keeps no list");
    QWidget plain, front;
    plain.setWindowTitle(QStringLiteral("Plain \u00e4\u4e00"));
    front.setWindowTitle(QStringLiteral("Front"));
    QWidget palette(&plain, Qt::Tool);
    palette.setWindowTitle(QStringLiteral("Palette"));
    plain.show();
    palette.show();
    front.show();
    QTRY_VERIFY(IsListed(plain.windowTitle()) && IsListed(QStringLiteral("Front")) &&
                IsListed(QStringLiteral("Palette")));
    const auto windows = X11WindowList().TopLevelWindows();
    const TopLevelWindow* listed = Named(windows, plain.windowTitle());
    QCOMPARE(listed->handle, static_cast<WindowHandle>(plain.winId()));
    QVERIFY(listed->isVisible && !listed->hasOwner && !listed->isToolWindow);
    const TopLevelWindow* owned = Named(windows, QStringLiteral("Palette"));
    QVERIFY(owned->hasOwner && !owned->isApplicationWindow);
    QTRY_VERIFY(front.isActiveWindow());
    X11WindowList().BringToForeground(listed->handle);
    QTRY_VERIFY(plain.isActiveWindow());
    plain.showMinimized();
    QTRY_VERIFY(!plain.isActiveWindow());
    QVERIFY(Named(X11WindowList().TopLevelWindows(), plain.windowTitle())->isVisible);
  }
};

}  // namespace snipdeck

QTEST_MAIN(snipdeck::X11ShellTest)
#include "x11_shell_test.moc"

#pragma once

#include <functional>

#include <QStringList>

#include "platform/shell.h"
#include "platform/window_list.h"

namespace snipdeck {

/// Starts nothing and writes down what it was asked for.
class FakeShell : public Shell {
 public:
  Outcome StartProgram(const QString& program, const QString& argument) override {
    return Write(QStringLiteral("start [%1] [%2]").arg(program, argument));
  }
  Outcome ExploreFolder(const QString& folder, WindowHandle owner) override {
    return Write(QStringLiteral("explore [%1] for %2").arg(folder).arg(owner));
  }
  /// A desktop without such a sheet.
  void ShowProperties(const QString& path, WindowHandle, std::function<void()> otherwise) override {
    calls.append(QStringLiteral("properties [%1]").arg(path));
    otherwise();
  }
  Outcome ToggleDesktop() override { return Write(QStringLiteral("desktop")); }

  QStringList calls;
  /// Happens during every call, as when the platform changes something of the program's.
  std::function<void()> meanwhile = [] {};

 private:
  Outcome Write(const QString& call) {
    calls.append(call);
    meanwhile();
    return Failure{Failure::Kind::Refused, QStringLiteral("nothing is ever started here")};
  }
};

/// A desktop with just these windows.
class FakeWindowList : public WindowList {
 public:
  std::vector<TopLevelWindow> TopLevelWindows() const override { return windows; }
  void BringToForeground(WindowHandle window) override { raised.push_back(window); }

  std::vector<TopLevelWindow> windows;
  std::vector<WindowHandle> raised;
};

}  // namespace snipdeck

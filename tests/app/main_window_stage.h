#pragma once

#include <QTemporaryDir>

#include "app/frm_snipdeck.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_clipboard_writer.h"
#include "fakes/fake_file_lookup.h"
#include "fakes/fake_shell.h"
#include "fakes/memory_clipboard.h"
#include "fakes/no_printer.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_messages.h"
#include "fakes/work_at_once.h"

namespace snipdeck {

/// A desktop of 1920 x 1080 pixels without panels.
class FakeScreen : public Screen {
 public:
  WorkArea Area() const override { return {0, 0, 28800, 16200}; }
};

/// The main window with everything around it faked, started in a new folder.
struct MainWindowStage {
  QTemporaryDir folder;
  FakeChangeWatch watch;
  FakeClipboard clipboard;
  FakeClipboardWriter writer;
  MemoryClipboard memory;
  ScriptedMessages messages;
  FakeScreen screen;
  FakeFileLookup files;
  FakeShell shell;
  FakeWindowList windows;
  ScriptedDialogs dialogs;
  NoPrinter printer;
  WorkAtOnce longWork;
  frmSnipdeck window;

  /// `settings` are the settings of the first start, the lines of the settings file.
  explicit MainWindowStage(const QByteArray& settings = {})
      : window({watch, clipboard, writer, memory, memory, messages, screen, files, shell, windows, dialogs, dialogs,
                printer, longWork, QStringLiteral("P:\\Own"), folder.path(), Settings(folder, settings)}) {
    window.Form_Load();
    window.show();
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    return window.findChild<Widget*>(QString::fromLatin1(name));
  }

 private:
  static QString Settings(const QTemporaryDir& folder, const QByteArray& lines) {
    QFile file(folder.filePath(QStringLiteral("first.ini")));
    if (file.open(QIODevice::WriteOnly)) file.write(lines);
    return file.fileName();
  }
};

}  // namespace snipdeck

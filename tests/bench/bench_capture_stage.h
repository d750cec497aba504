#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "app/frm_snipdeck.h"
#include "platform/change_watch.h"
#include "platform/qt/qt_file_dialogs.h"
#include "platform/qt/qt_file_lookup.h"
#include "platform/qt/qt_font_colour_dialogs.h"
#include "platform/qt/qt_long_work.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/printing/qt_print_dialog.h"
#include "platform/qt/qt_screen.h"
#include "platform/x11/x11_clipboard_access.h"
#include "platform/x11/x11_clipboard_functions.h"
#include "platform/x11/x11_clipboard_watch.h"
#include "platform/x11/x11_shell.h"
#include "platform/x11/x11_window_list.h"

namespace snipdeck::bench {

/// Passes every change on and runs `afterChange` when it has been handled.
class TimedWatch : public ChangeWatch {
 public:
  TimedWatch(ChangeWatch& inner, Handler afterChange) : m_inner(inner), m_afterChange(std::move(afterChange)) {}
  void StartWatching(Handler onChange) override;
  void StopWatching() override { m_inner.StopWatching(); }
  void Hold(bool hold) override { m_inner.Hold(hold); }
  bool IsWatching() const { return m_isWatching; }

 private:
  ChangeWatch& m_inner;
  Handler m_afterChange;
  bool m_isWatching = false;
};

/// The outside world, as main() puts it together, without the helper that outlives the program.
class Outside {
 public:
  MainWindowServices Services(ChangeWatch& watch, const Clipboard& clipboard, const QString& folder);
  QtScreen screen;

 private:
  PresentContents m_contents;
  X11ClipboardAccess m_access{m_contents, QString()};
  X11ClipboardFunctions m_functions{m_contents};
  QtMessageBox m_messages;
  QtFileLookup m_files;
  X11Shell m_shell;
  X11WindowList m_windows;
  QtFileDialogs m_fileDialogs;
  QtFontColourDialogs m_fontColourDialogs;
  QtPrintDialog m_printDialog;
  QtLongWork m_longWork;
};

/// The main window as main() puts it together, on the present display and in a new folder, with a clock behind each
/// capture.
class CaptureStage {
 public:
  CaptureStage();

  /// One numbered copy, as it arrived in a box.
  struct Capture {
    int number;
    qint64 nanoseconds;  ///< CLOCK_MONOTONIC once the box had its text
  };
  struct Run {
    std::vector<Capture> captures;
    std::vector<qint64> takenAt;  ///< entry n: when the owner took the clipboard for copy n; 0 if it did not
  };
  enum class Owner { One, NewProcessEach };

  /// Lets pass what follows an edit: its lines are placed, and the recovery file takes it.
  void Settle();
  /// Another program makes `count` copies of 1 kB, numbered from 1, `interval` ms apart.
  /// Returns when the last has arrived, or 5 s after it should have.
  Run RunCopies(int count, int interval, Owner owner);
  frmSnipdeck& Window() { return m_window; }

 private:
  void NoteCapture();
  bool RunUntil(const std::function<bool()>& isDone, int milliseconds);

  QTemporaryDir m_folder;
  X11ClipboardWatch m_clipboard;
  TimedWatch m_watch;
  Outside m_outside;
  frmSnipdeck m_window;
  std::vector<Capture> m_captures;
  std::function<void()> m_onCapture;
};

/// CLOCK_MONOTONIC in nanoseconds.
qint64 Now();

}  // namespace snipdeck::bench

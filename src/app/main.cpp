#include <QApplication>
#include <QDir>
#include <QSessionManager>

#include "app/frm_snipdeck.h"
#include "app/program_folder.h"
#include "app/single_instance.h"
#include "app/termination_signals.h"
#include "platform/qt/drawn_icon.h"
#include "platform/qt/printing/qt_print_dialog.h"
#include "platform/qt/program_style.h"
#include "platform/qt/qt_file_dialogs.h"
#include "platform/qt/qt_file_lookup.h"
#include "platform/qt/qt_font_colour_dialogs.h"
#include "platform/qt/qt_long_work.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_screen.h"
#include "platform/x11/x11_clipboard_access.h"
#include "platform/x11/x11_clipboard_functions.h"
#include "platform/x11/x11_clipboard_watch.h"
#include "platform/x11/x11_shell.h"
#include "platform/x11/x11_window_list.h"

namespace {

using namespace snipdeck;

void AnnounceWindow(SingleInstance& instance, const QWidget& window) {
  if (QGuiApplication::platformName() != QStringLiteral("xcb")) return;
  instance.AnnounceWindow(qgetenv("DISPLAY"), static_cast<std::uint32_t>(window.winId()));
}

/// Keeps the clipboard's contents after the end.
QString HolderProgram() {
  return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("qm_snipdeck_holder"));
}

// Windows are placed, listed and raised over X, so that XWayland is asked even where Qt would rather speak Wayland.
void PreferX() {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "xcb");
}

int Run(QApplication& application, SingleInstance& instance, const QString& folder) {
  X11ClipboardWatch clipboard;
  PresentContents contents;
  X11ClipboardAccess clipboardAccess(contents, HolderProgram());
  X11ClipboardFunctions clipboardFunctions(contents);
  QtMessageBox messages;
  QtScreen screen;
  QtFileLookup files;
  X11Shell shell;
  X11WindowList windows;
  QtFileDialogs fileDialogs;
  QtFontColourDialogs fontColourDialogs;
  QtPrintDialog printDialog;
  QtLongWork longWork;
  frmSnipdeck window({clipboard, clipboard, clipboardAccess, clipboardAccess, clipboardFunctions, messages, screen,
                      files, shell, windows, fileDialogs, fontColourDialogs, printDialog, longWork,
                      QCoreApplication::applicationDirPath(), folder, InstalledSettingsPath()});
  screen.Follow(&window);
  window.Form_Load();

  const TerminationSignals requests([&window] {
    window.EndForced();
    QCoreApplication::exit(0);
  });
  QObject::connect(
      &application, &QGuiApplication::commitDataRequest, &window, [&window] { window.SessionEnding(); },
      Qt::DirectConnection);
  window.show();
  AnnounceWindow(instance, window);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setApplicationName(QString::fromLatin1(kProgramTitle));
  const QString folder = ProgramFolder();
  SingleInstance instance(folder);
  if (!instance.IsFirst()) {
    instance.RaisePreviousInstance();
    return 0;
  }
  QGuiApplication::setDesktopFileName(QStringLiteral("org.qm_snipdeck.QM_Snipdeck"));
  PreferX();
  QApplication application(argc, argv);
  QApplication::setStyle(new ProgramStyle);
  QApplication::setWindowIcon(DrawnIcon(QStringLiteral("program"), Qt::black));
  return Run(application, instance, folder);
}

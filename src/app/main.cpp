#include <QApplication>

#include "app/frm_snipdeck.h"
#include "platform/qt/qt_message_box.h"
#include "platform/x11/x11_clipboard_watch.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QString::fromLatin1(snipdeck::kProgramTitle));
  snipdeck::X11ClipboardWatch clipboard;
  snipdeck::QtMessageBox messages;
  snipdeck::frmSnipdeck window({clipboard, clipboard, messages});
  window.show();
  return QApplication::exec();
}

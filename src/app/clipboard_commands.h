#pragma once

#include <memory>

#include "capture/box_set.h"
#include "clipformats/clipboard_window_services.h"
#include "platform/screen.h"

namespace snipdeck {

class frmShowClip;

/// Opens the two windows that show the clipboard.
class ClipboardCommands {
 public:
  /// `window` is the main window, in front of which the modal one stands; the windows are kept on its screen.
  ClipboardCommands(BoxSet& boxes, const ClipboardWindowServices& services, const Screen& screen, QWidget& window);
  ~ClipboardCommands();

  /// Shows the text on the clipboard, waits, and puts what the user retrieved into the box last worked in.
  void ViewAndPaste();
  /// Shows every kind of contents beside the main window. While that window is open it is only brought to the front.
  void ShowAllTypes();

 private:
  void ShowAllTypesModally(QWidget* parent);
  bool RaiseOpenOne();
  void ForgetClosedOne();

  BoxSet& m_boxes;
  ClipboardWindowServices m_services;
  QWidget& m_window;
  std::int16_t m_dialogResult = 0;
  std::unique_ptr<frmShowClip> m_showClip;
};

}  // namespace snipdeck

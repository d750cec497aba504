#include "app/clipboard_commands.h"

#include "clipformats/frm_show_clip.h"
#include "clipformats/frm_view_and_paste.h"
#include "layout/keep_on_screen.h"
#include "storage/busy_pointer.h"

namespace snipdeck {

namespace {

KeepOnScreenStep KeepOn(const Screen& screen) {
  return [&screen](WindowGeometry& window, const KeptPlacement& kept) {
    SavedPlacement saved{kept.left, kept.top, kept.width, kept.height};
    KeepOnScreen(screen.Area(), window, PlacedWindow::Other, saved);
    KeepReachable(screen.Area(), window);
    kept.left = saved.left;
    kept.top = saved.top;
    kept.width = saved.width;
    kept.height = saved.height;
  };
}

}  // namespace

ClipboardCommands::ClipboardCommands(BoxSet& boxes, const ClipboardWindowServices& services, const Screen& screen,
                                     QWidget& window)
    : m_boxes(boxes), m_services(services), m_window(window) {
  m_services.keepOnScreen = KeepOn(screen);
}

ClipboardCommands::~ClipboardCommands() = default;

void ClipboardCommands::ViewAndPaste() {
  m_dialogResult = 0;
  frmViewAndPaste dialog(
      m_services, {m_boxes.WhichTXControl, m_dialogResult}, [this](QWidget* parent) { ShowAllTypesModally(parent); },
      &m_window);
  dialog.exec();
  const bool hasTarget = m_boxes.FocusedBox >= 1 && m_boxes.FocusedBox <= kBoxCount;
  if (m_dialogResult == 1 && hasTarget) {
    m_boxes.Box(m_boxes.FocusedBox).SetSelRichText(m_boxes.WhichTXControl.SelRtf());
  }
}

void ClipboardCommands::ShowAllTypes() {
  if (RaiseOpenOne()) return;
  const BusyPointer busy;
  m_showClip = std::make_unique<frmShowClip>(m_services, nullptr);
  QObject::connect(
      m_showClip.get(), &QDialog::finished, &m_window, [this] { ForgetClosedOne(); }, Qt::QueuedConnection);
  m_showClip->show();
}

void ClipboardCommands::ShowAllTypesModally(QWidget* parent) {
  if (!RaiseOpenOne()) frmShowClip(m_services, parent).exec();
}

void ClipboardCommands::ForgetClosedOne() {
  if (m_showClip && !m_showClip->isVisible() && !m_showClip->IsBusy()) m_showClip.reset();
}

bool ClipboardCommands::RaiseOpenOne() {
  ForgetClosedOne();
  if (!m_showClip) return false;
  m_showClip->show();
  m_showClip->raise();
  m_showClip->activateWindow();
  return true;
}

}  // namespace snipdeck

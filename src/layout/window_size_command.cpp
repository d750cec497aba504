#include "layout/window_size_command.h"

#include "layout/frm_window_size.h"
#include "layout/keep_on_screen.h"
#include "layout/window_sizes.h"
#include "platform/qt/normal_state.h"

namespace snipdeck {

void WindowSizeCommand::Run() {
  frmWindowSize dialog(m_host.settings, &m_host.window);
  m_host.fonts.ApplyControlFont(dialog);
  const int choice = dialog.exec();
  if (choice != frmWindowSize::kCancelled) Apply(choice);
}

void WindowSizeCommand::Apply(int choice) {
  BringToNormalState(m_host.window);
  const WorkArea area = m_host.screen.Area();
  const WindowSizes sizes(area);
  if (choice == frmWindowSize::kPercent) {
    sizes.ApplyPercent(m_host.settings.windowPercent, m_host.geometry);
  } else {
    sizes.ApplyPreset(m_host.settings.windowPreset, m_host.geometry);
  }
  KeepReachable(area, m_host.geometry);
  m_host.layOut();
}

}  // namespace snipdeck

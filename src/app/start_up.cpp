#include "app/start_up.h"

#include <cmath>
#include <utility>

#include <QFileInfo>
#include <QTimer>

#include "app/program_folder.h"
#include "layout/keep_on_screen.h"

namespace snipdeck {

namespace {

std::int32_t Whole(double twips) {
  return static_cast<std::int32_t>(std::nearbyint(twips));
}

}  // namespace

StartUp::StartUp(const MainWindowParts& parts, const QString& folder, const QString& firstSettings)
    : m_parts(parts), m_folder(folder), m_firstSettings(firstSettings) {}

void StartUp::Load() {
  ReadSettings();
  if (m_parts.settings.buttonColour != kNoColour) m_steps.applyButtonColour();
  PlaceWindow();
  m_parts.boxes.CurrentBox = 0;
  m_parts.boxes.BoxesAltered = false;
  ChooseStorageFolder();
  m_parts.recovery.Recover();
  m_parts.storage.RestoreBoxes();
  m_parts.recovery.StartTracking();
  m_parts.window.setWindowTitle(QStringLiteral("Storage folder: ") + m_parts.settings.storageFolder);
  m_steps.buildSidebar();
}

void StartUp::ReadSettings() {
  m_parts.settings.contentsFileName = QStringLiteral("Snipdeck_Contents.rtf");
  CopyFirstSettings(FileInFolder(m_folder, QString::fromLatin1(kSettingsFileName)), m_firstSettings);
  m_parts.settingsFile.ReadSettings();
}

void StartUp::PlaceWindow() {
  const Settings& saved = m_parts.settings;
  WindowGeometry& window = m_parts.geometry;
  window.SetLeft(saved.mainLeft);
  window.SetTop(saved.mainTop);
  window.SetWidth(saved.mainWidth);
  window.SetHeight(saved.mainHeight);
  SavedPlacement taken{Whole(window.Left()), Whole(window.Top()), Whole(window.Width()), Whole(window.Height())};
  KeepOnScreen(m_parts.screen.Area(), window, PlacedWindow::Main, taken);
  KeepReachable(m_parts.screen.Area(), window);
}

void StartUp::ChooseStorageFolder() {
  QString& folder = m_parts.settings.storageFolder;
  if (folder.isEmpty() || !QFileInfo(folder).isDir()) folder = m_folder;
}

void StartUp::Activated(ChangeWatch::Handler onChange) {
  m_steps.applyControlFonts();
  if (!std::exchange(FirstShow, false)) return;
  m_parts.watch.StartWatching(std::move(onChange));
  ShowFirstView();
  QTimer::singleShot(0, &m_parts.recovery, [recovery = &m_parts.recovery] { recovery->StartSucceeded(); });
}

void StartUp::ShowFirstView() {
  if (m_parts.settings.startWithCumulative != 1) {
    m_parts.boxes.Box(1).setFocus();
    return;
  }
  m_parts.views.ShowCumulative();
  if (m_parts.settings.loadLastFile == 1) m_steps.loadContentsFile();
}

}  // namespace snipdeck

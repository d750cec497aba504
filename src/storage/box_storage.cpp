#include "storage/box_storage.h"

#include <QDir>
#include <QFileInfo>

#include "storage/busy_pointer.h"
#include "storage/file_types.h"

namespace snipdeck {

QString ChooseStorageFolder(StoredBoxes& boxes, FileDialogs& dialogs, const QString& present) {
  if (boxes.CumulativeCovers()) return {};
  return dialogs.BrowseForFolder(QStringLiteral("Set folder for saving text boxes"), present);
}

BoxStorage::BoxStorage(StoredBoxes& boxes, MessageBox& messages, const QString& storageFolder)
    : m_boxes(boxes), m_messages(messages), m_reports(messages), m_storageFolder(storageFolder) {}

bool BoxStorage::SaveAll() {
  if (!m_boxes.AreShown()) return false;
  bool allSaved = true;
  {
    const BusyPointer busy;
    const auto paths = BuildBoxFilePaths(m_storageFolder);
    for (int n = 1; n <= StoredBoxes::kCount; ++n) {
      const QString& path = paths[static_cast<size_t>(n)];
      const Outcome saved = m_boxes.SaveFile(n, path);
      if (!saved) m_reports.ShowFileError(path, saved.Error().text);
      allSaved = allSaved && saved;
    }
    m_boxes.SetAltered(false);
  }
  m_messages.ShowInformation(QStringLiteral("Text boxes saved to disk in this folder:\r\n\r\n") + m_storageFolder);
  return allSaved;
}

void BoxStorage::LoadAll() {
  if (!m_boxes.AreShown()) return;
  const Message question{
      .text = QStringLiteral("Text boxes have been altered. Load contents from disk nonetheless?\r\n"),
      .icon = MessageIcon::Question,
      .buttons = MessageButtons::YesNo};
  if (m_boxes.Altered() && m_messages.Show(question) != MessageAnswer::Yes) return;
  LoadStoredBoxes();
}

void BoxStorage::LoadStoredBoxes() {
  const auto paths = BuildBoxFilePaths(m_storageFolder);
  for (int n = 1; n <= StoredBoxes::kCount; ++n) {
    const QString& path = paths[static_cast<size_t>(n)];
    if (QFileInfo::exists(path)) LoadFileIntoBox(n, path);
  }
}

void BoxStorage::LoadFileIntoBox(int n, const QString& path) {
  if (path.isEmpty() || !QFileInfo::exists(path)) return m_reports.ShowFileNotFound(path);
  m_boxes.LoadFile(n, path, LoadFormatForName(path, true));
}

void BoxStorage::RestoreBoxes() {
  for (int n = 1; n <= StoredBoxes::kCount; ++n) {
    const RichText captured = m_boxes.Captured(n);
    if (captured.IsEmpty()) continue;
    m_boxes.SetSelection(n, captured);
    m_boxes.SetAltered(true);
  }
}

std::array<QString, StoredBoxes::kCount + 1> BoxStorage::BuildBoxFilePaths(const QString& storageFolder) {
  std::array<QString, StoredBoxes::kCount + 1> paths;
  for (int n = 1; n <= StoredBoxes::kCount; ++n) {
    paths[static_cast<size_t>(n)] =
        storageFolder + QDir::separator() + QStringLiteral("QM_Snipdeck_Text_%1.rtf").arg(n, 2, 10, QLatin1Char('0'));
  }
  return paths;
}

}  // namespace snipdeck

#include "storage/box_storage.h"

#include <QDir>

#include "platform/whole_file.h"
#include "storage/busy_pointer.h"

namespace snipdeck {

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
      const Outcome saved = SaveBoxFile(m_boxes.Contents(n), path);
      if (!saved) m_reports.ShowFileError(path, saved.Error().text);
      allSaved = allSaved && saved;
    }
    m_boxes.SetAltered(false);
  }
  m_messages.ShowInformation(QStringLiteral("Text boxes saved to disk in this folder:\r\n\r\n") + m_storageFolder);
  return allSaved;
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

Outcome BoxStorage::SaveBoxFile(const RichText& text, const QString& path) {
  return WriteWholeFile(path, text.Rtf());
}

}  // namespace snipdeck

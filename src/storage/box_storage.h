#pragma once

#include <array>

#include "platform/result.h"
#include "richtext/rich_text.h"
#include "storage/file_reports.h"

namespace snipdeck {

/// The twelve boxes as their storage sees them; n is 1 to 12.
class StoredBoxes {
 public:
  static constexpr int kCount = 12;
  virtual ~StoredBoxes() = default;

  /// False while a panel covers the boxes; the user has then been told to leave it.
  virtual bool AreShown() = 0;
  virtual RichText Contents(int n) const = 0;
  /// Puts a text into box n as a capture would.
  virtual void SetSelection(int n, const RichText& text) = 0;
  /// What a capture last filed into box n; empty where none did.
  virtual RichText Captured(int n) const = 0;
  virtual void SetAltered(bool altered) = 0;
};

/// The files of the boxes in the storage folder: one RTF document a box.
class BoxStorage {
 public:
  /// `storageFolder` is read at every command, so a change of it takes effect at the next one.
  BoxStorage(StoredBoxes& boxes, MessageBox& messages, const QString& storageFolder);

  /// "Save all text boxes": writes every box, empty ones too. A box that cannot be written is reported, and the others
  /// are written all the same. False when a box could not be written, or none was since a panel covers the boxes.
  bool SaveAll();
  /// Gives every box back what a capture last filed into it; boxes without such a text stay as they are.
  void RestoreBoxes();

  /// Entry n is the file of box n; entry 0 is empty. The folder is taken as it stands, without a look at how it ends.
  static std::array<QString, StoredBoxes::kCount + 1> BuildBoxFilePaths(const QString& storageFolder);
  /// Writes one text as RTF, replacing any file of that name.
  static Outcome SaveBoxFile(const RichText& text, const QString& path);

 private:
  StoredBoxes& m_boxes;
  MessageBox& m_messages;
  FileReports m_reports;
  const QString& m_storageFolder;
};

}  // namespace snipdeck

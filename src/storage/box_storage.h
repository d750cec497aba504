#pragma once

#include <array>

#include "platform/file_dialogs.h"
#include "platform/result.h"
#include "richtext/file_format.h"
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
  /// The cumulative text covers the boxes; the user has then been told to leave it.
  virtual bool CumulativeCovers() = 0;
  /// Writes box n as RTF, replacing any file of that name. Tells the user nothing.
  virtual Outcome SaveFile(int n, const QString& path) = 0;
  /// Replaces the contents of box n by those of a file; a failure is told by the box itself.
  virtual void LoadFile(int n, const QString& path, FileFormat format) = 0;
  /// Puts a text into box n as a capture would.
  virtual void SetSelection(int n, const RichText& text) = 0;
  /// What a capture last filed into box n; empty where none did.
  virtual RichText Captured(int n) const = 0;
  virtual bool Altered() const = 0;
  virtual void SetAltered(bool altered) = 0;
};

/// Lets the user choose the folder of the box files; "" where he cancels, or the cumulative text covers the boxes.
QString ChooseStorageFolder(StoredBoxes& boxes, FileDialogs& dialogs, const QString& present);

/// The files of the boxes in the storage folder: one RTF document a box.
class BoxStorage {
 public:
  /// `storageFolder` is read at every command, so a change of it takes effect at the next one.
  BoxStorage(StoredBoxes& boxes, MessageBox& messages, const QString& storageFolder);

  /// "Save all text boxes": writes every box, empty ones too. A box that cannot be written is reported, and the others
  /// are written all the same. False when a box could not be written, or none was since a panel covers the boxes.
  bool SaveAll();
  /// "Load previous contents": asks first where the user has changed a box. A box without a file stays as it is.
  void LoadAll();
  /// Loads one file into box n; a file that is missing is reported.
  void LoadFileIntoBox(int n, const QString& path);
  /// Gives every box back what a capture last filed into it; boxes without such a text stay as they are.
  void RestoreBoxes();

  /// Entry n is the file of box n; entry 0 is empty. The folder is taken as it stands, without a look at how it ends.
  static std::array<QString, StoredBoxes::kCount + 1> BuildBoxFilePaths(const QString& storageFolder);

 private:
  void LoadStoredBoxes();

  StoredBoxes& m_boxes;
  MessageBox& m_messages;
  FileReports m_reports;
  const QString& m_storageFolder;
};

}  // namespace snipdeck

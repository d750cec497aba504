#pragma once

#include <map>
#include <vector>

#include "platform/clipboard_functions.h"
#include "platform/clipboard_memory.h"
#include "platform/x11/format_table.h"
#include "platform/x11/present_contents.h"

namespace snipdeck {

/// The clipboard of an X server as numbered formats. The server knows no opening and closing, so that is a discipline
/// within this program; what was set is offered to other programs when the clipboard is closed, added to what is there
/// unless it was emptied. A bitmap (format 2) is the same block as format 8. The system's code page is 1252.
class X11ClipboardFunctions : public ClipboardFunctions {
 public:
  explicit X11ClipboardFunctions(PresentContents& contents) : m_contents(contents) {}

  bool OpenClipboard(WindowHandle owner) override;
  void CloseClipboard() override;
  bool EmptyClipboard() override;
  int CountClipboardFormats() override;
  ClipboardFormat EnumClipboardFormats(ClipboardFormat previous) override;
  bool IsClipboardFormatAvailable(ClipboardFormat format) override;
  MemoryHandle GetClipboardData(ClipboardFormat format) override;
  QString LastFailure() const override { return m_failure; }
  bool SetClipboardData(ClipboardFormat format, MemoryHandle block) override;
  QString RegisteredName(ClipboardFormat format, int limit) override;
  ClipboardFormat RegisterFormat(const QString& name) override;
  MemoryHandle AllocateBlock(std::uint32_t flags, std::size_t size) override;
  char* LockBlock(MemoryHandle block) override { return m_memory.Data(block); }
  void UnlockBlock(MemoryHandle) override {}
  std::size_t BlockSize(MemoryHandle block) override { return m_memory.Size(block); }
  std::uint32_t QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer, std::uint32_t size) override;
  int CharacterCode(char16_t character) const override;
  QString TextFromCodePage(QByteArrayView bytes) const override;

 private:
  std::vector<ClipboardFormat> Formats();
  void BeginList();
  MemoryHandle Adopt(const QByteArray& block);
  QByteArray ReadBlock(ClipboardFormat format);
  QByteArray BlockOf(ClipboardFormat format, const QByteArray& target, const QByteArray& bytes) const;
  OfferedData OffersOf(ClipboardFormat format, const QByteArray& block) const;
  OfferedData PendingOffers() const;

  const QStringList& DropNames(MemoryHandle block);

  PresentContents& m_contents;
  FormatTable m_formats;
  ClipboardMemory m_memory;
  bool m_isOpen = false;
  WindowHandle m_owner = 0;
  bool m_isEmptied = false;
  /// Set since the clipboard was opened, in the order in which they were set.
  std::vector<std::pair<ClipboardFormat, QByteArray>> m_pending;
  /// The formats that an enumeration began with.
  std::vector<ClipboardFormat> m_listed;
  QString m_failure;
  MemoryHandle m_dropBlock = 0;
  QStringList m_dropNames;
};

}  // namespace snipdeck

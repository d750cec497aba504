#pragma once

#include "platform/clipboard_functions.h"

namespace snipdeck {

/// The clipboard of Windows, through the functions that it has for each of these.
class Win32ClipboardFunctions : public ClipboardFunctions {
 public:
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
  char* LockBlock(MemoryHandle block) override;
  void UnlockBlock(MemoryHandle block) override;
  std::size_t BlockSize(MemoryHandle block) override;
  std::uint32_t QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer, std::uint32_t size) override;
  int CharacterCode(char16_t character) const override;
  QString TextFromCodePage(QByteArrayView bytes) const override;

 private:
  QString m_failure;
};

}  // namespace snipdeck

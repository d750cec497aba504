#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include <QHash>

#include "platform/clipboard_access.h"
#include "platform/clipboard_functions.h"
#include "platform/clipboard_memory.h"

namespace snipdeck {

/// A clipboard in memory. It behaves as the platform's does; what a test can arrange and look into stands at the top.
class MemoryClipboard : public ClipboardFunctions, public ClipboardAccess {
 public:
  struct Entry {
    ClipboardFormat format;
    QByteArray bytes;
  };
  /// In the order in which the formats were set.
  std::vector<Entry> contents;
  /// Another program holds the clipboard open.
  bool heldByOther = false;
  /// The platform takes no data and has no memory.
  bool refusesData = false;
  bool isOutOfMemory = false;
  /// Bytes that a block gets beyond what was asked for.
  std::size_t slack = 0;
  /// This character takes two bytes in the code page.
  char16_t doubleByteCharacter = 0;
  /// The number that the next registered name gets.
  ClipboardFormat nextFormat = kFirstRegisteredFormat + 1;
  QHash<QString, ClipboardFormat> registered;
  bool isOpen = false;
  /// This format's owner does not hand it over, for this reason.
  ClipboardFormat unreadable = 0;
  QString refusal;
  /// OpenClipboard() calls that were not refused.
  int opened = 0;

  void Hold(ClipboardFormat format, const QByteArray& bytes) { contents.push_back({format, bytes}); }
  QByteArray BytesOf(ClipboardFormat format) const {
    const auto found = Find(format);
    return found == contents.end() ? QByteArray() : found->bytes;
  }

  bool OpenClipboard(WindowHandle) override {
    if (heldByOther) return false;
    ++opened;
    return isOpen = true;
  }
  void CloseClipboard() override { isOpen = false; }
  bool EmptyClipboard() override {
    if (isOpen) contents.clear();
    return isOpen;
  }
  int CountClipboardFormats() override { return static_cast<int>(contents.size()); }
  ClipboardFormat EnumClipboardFormats(ClipboardFormat previous) override {
    auto next = previous == 0 ? contents.cbegin() : Find(previous) + 1;
    return isOpen && next != contents.cend() ? next->format : 0;
  }
  bool IsClipboardFormatAvailable(ClipboardFormat format) override { return Find(format) != contents.end(); }
  MemoryHandle GetClipboardData(ClipboardFormat format) override {
    const auto found = Find(format);
    return isOpen && found != contents.end() && format != unreadable ? m_memory.Adopt(found->bytes) : 0;
  }
  QString LastFailure() const override { return refusal; }
  bool SetClipboardData(ClipboardFormat format, MemoryHandle block) override {
    const QByteArray bytes = m_memory.Take(block);
    if (!isOpen || refusesData) return false;
    std::erase_if(contents, [format](const Entry& entry) { return entry.format == format; });
    contents.push_back({format, bytes});
    return true;
  }
  QString RegisteredName(ClipboardFormat format, int limit) override { return registered.key(format).left(limit); }
  ClipboardFormat RegisterFormat(const QString& name) override {
    if (!registered.contains(name)) registered.insert(name, nextFormat++);
    return registered.value(name);
  }
  MemoryHandle AllocateBlock(std::uint32_t, std::size_t size) override {
    return isOutOfMemory ? 0 : m_memory.Allocate(size + slack);
  }
  char* LockBlock(MemoryHandle block) override { return m_memory.Data(block); }
  void UnlockBlock(MemoryHandle) override {}
  std::size_t BlockSize(MemoryHandle block) override { return m_memory.Size(block); }
  std::uint32_t QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer, std::uint32_t size) override {
    const QList<QByteArray> names = m_memory.Bytes(block).mid(20).chopped(2).split('\0');
    if (index == kCountOfDropFiles) return static_cast<std::uint32_t>(names.size());
    const auto length = std::min<std::uint32_t>(static_cast<std::uint32_t>(names[index].size()), size - 1);
    std::copy_n(names[index].cbegin(), length, buffer);
    buffer[length] = u'\0';
    return length;
  }
  int CharacterCode(char16_t character) const override {
    if (character == doubleByteCharacter) return 0x8140;
    return character < 0x100 ? character : '?';
  }
  QString TextFromCodePage(QByteArrayView bytes) const override { return QString::fromLatin1(bytes); }

  bool HasFormat(ClipboardFormat format) override { return Find(format) != contents.end(); }
  Result<RichTextPayload> RichText() override {
    if (!HasFormat(kFormatRichText)) return Failure{Failure::Kind::NotFound, "no rich text"};
    return RichTextPayload{RichTextPayload::Encoding::Rtf, BytesOf(kFormatRichText)};
  }
  /// Fails while the clipboard is held open, as the platform's does.
  Result<QString> Text() override {
    if (isOpen || heldByOther) return Failure{Failure::Kind::Refused, "the clipboard is open"};
    return QString::fromLatin1(BytesOf(kFormatText));
  }
  Result<EncodedPicture> Picture() override { return EncodedPicture{BytesOf(kFormatBitmap), "png"}; }

 private:
  std::vector<Entry>::const_iterator Find(ClipboardFormat format) const {
    return std::find_if(contents.begin(), contents.end(), [format](const Entry& e) { return e.format == format; });
  }

  ClipboardMemory m_memory;
};

}  // namespace snipdeck

#pragma once

#include <cstddef>
#include <cstdint>

#include <QByteArrayView>
#include <QString>

#include "platform/clipboard_formats.h"
#include "platform/window_handle.h"

namespace snipdeck {

/// A block of memory that goes to or comes from the clipboard; 0 is no block.
using MemoryHandle = std::uintptr_t;

/// The flag of AllocateBlock() for a block that other programs may see.
inline constexpr std::uint32_t kSharedBlock = 0x2000;
/// QueryDropFile() with this index tells the number of names.
inline constexpr std::uint32_t kCountOfDropFiles = 0xFFFFFFFF;

/// The clipboard as the platform has it: format numbers and blocks of bytes laid out as on Windows. Whoever reads or
/// writes opens it first and closes it soon after.
class ClipboardFunctions {
 public:
  virtual ~ClipboardFunctions() = default;

  /// Opens the clipboard for a window, 0 for none. False while another window holds it open.
  virtual bool OpenClipboard(WindowHandle owner) = 0;
  /// Ends what OpenClipboard() began; what was set becomes visible to other programs at the latest now, as one change.
  /// Handles that GetClipboardData() gave are void afterwards.
  virtual void CloseClipboard() = 0;
  /// Drops all formats. False when the clipboard is not open.
  virtual bool EmptyClipboard() = 0;

  /// The number of formats there now; the clipboard need not be open.
  virtual int CountClipboardFormats() = 0;
  /// The format after `previous` in the clipboard's order, the first one after 0; 0 after the last one and when the
  /// clipboard is not open.
  virtual ClipboardFormat EnumClipboardFormats(ClipboardFormat previous) = 0;
  /// Whether the format is there now; the clipboard need not be open.
  virtual bool IsClipboardFormatAvailable(ClipboardFormat format) = 0;

  /// The block of a format, which stays the clipboard's. 0 when it is not open, has no such format, or when the
  /// format's owner does not hand it over in time: reading waits for another program one second without progress, and
  /// no longer than five in all. Events are handled meanwhile, the user's are not.
  virtual MemoryHandle GetClipboardData(ClipboardFormat format) = 0;
  /// Why the last GetClipboardData() gave no block, why OpenClipboard() was refused, or why the last list that
  /// EnumClipboardFormats() began is empty although something may be there, in words for a person; empty otherwise.
  virtual QString LastFailure() const = 0;
  /// Hands a block to the clipboard, which owns it from now on, also when it refuses it. Other formats stay. False when
  /// the clipboard is not open or cannot carry the format.
  virtual bool SetClipboardData(ClipboardFormat format, MemoryHandle block) = 0;

  /// The name under which the number was registered, at most `limit` characters of it; empty for any other number.
  virtual QString RegisteredName(ClipboardFormat format, int limit) = 0;
  /// The number of a name, the same one for the same name throughout the run. 0 if it cannot be registered.
  virtual ClipboardFormat RegisterFormat(const QString& name) = 0;

  /// A new block of at least `size` bytes; 0 when there is no memory for it.
  virtual MemoryHandle AllocateBlock(std::uint32_t flags, std::size_t size) = 0;
  /// The bytes of a block, until UnlockBlock(); null for a handle that stands for nothing.
  virtual char* LockBlock(MemoryHandle block) = 0;
  virtual void UnlockBlock(MemoryHandle block) = 0;
  /// The allocated size in bytes, which may exceed what was asked for.
  virtual std::size_t BlockSize(MemoryHandle block) = 0;

  /// Writes name number `index` (from 0) of a drop-files block into the buffer of `size` characters, cut to fit, with a
  /// terminator; returns its characters. With kCountOfDropFiles it returns the number of names and writes nothing.
  virtual std::uint32_t QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer,
                                      std::uint32_t size) = 0;

  /// The character's code in the system's 8-bit code page, '?' if it has none; above 255 where it takes two bytes.
  virtual int CharacterCode(char16_t character) const = 0;
  /// Bytes in the system's 8-bit code page as text, zero bytes included.
  virtual QString TextFromCodePage(QByteArrayView bytes) const = 0;
};

}  // namespace snipdeck

#pragma once

#include <cstdint>
#include <vector>

#include <QString>

#include "clipformats/bounded_array.h"
#include "platform/clipboard_access.h"
#include "platform/clipboard_functions.h"

namespace snipdeck {

using ByteArray = BoundedArray<std::uint8_t>;
using StringArray = BoundedArray<QString>;

/// Every format of the clipboard by number and name, as bytes, text or list of files. Each window that needs it has an
/// instance of its own, opens it, does one operation and closes it. Throws ClipboardError and nothing else; results and
/// arguments passed by reference stay unset then.
class cCustomClipboard {
 public:
  cCustomClipboard(ClipboardFunctions& platform, ClipboardAccess& access);
  /// Closes the clipboard if it is still open.
  ~cCustomClipboard();
  cCustomClipboard(const cCustomClipboard&) = delete;
  cCustomClipboard& operator=(const cCustomClipboard&) = delete;

  /// False while another program or window holds the clipboard.
  bool ClipboardOpen(WindowHandle hwndOwner);
  void ClipboardClose();
  void ClearClipboard();

  /// Formats there now; the clipboard need not be open.
  std::int16_t FormatCount();
  /// Lists what is there now and returns the count. Opens the clipboard and leaves it closed, also when it was open.
  std::int32_t GetCurrentFormats(WindowHandle hwndOwner);
  /// Entries 1 .. count of the last list.
  std::int32_t GetCurrentFormatID(std::int32_t lIndex) const;
  QString GetCurrentFormatName(std::int32_t lIndex) const;
  /// Looks at the last list only.
  bool HasCurrentFormat(std::int32_t lFormatId) const;

  /// Empty for a number without a name.
  QString FormatName(std::int32_t lFormatId);
  /// Lists anew; the first format of exactly that name, 0 if there is none.
  std::int32_t FormatIDForName(WindowHandle hwndOwner, const QString& sName);
  bool IsDataAvailableForFormatName(WindowHandle hwndOwner, const QString& sFormatName);
  bool IsDataAvailableForFormat(std::int32_t lFormatId);
  /// Registers a name; its number, above 0xC000, or 0.
  std::int32_t AddFormat(const QString& sName);

  /// The clipboard's own block, not to be freed; 0 if there is none.
  MemoryHandle GetClipboardMemoryHandle(std::int32_t lFormatId);
  bool SetClipboardMemoryHandle(std::int32_t lFormatId, MemoryHandle hMem);
  /// The whole block with indices from 0; false and an empty array if there is none.
  bool GetBinaryData(std::int32_t lFormatId, ByteArray& bData);
  /// Adds a format; what else is there stays.
  bool SetBinaryData(std::int32_t lFormatId, const ByteArray& bData);
  /// Formats 1 and 13 give the clipboard's text, empty if it has none, and always succeed. Any other format gives its
  /// bytes as characters of the system's code page, terminators included.
  bool GetTextData(std::int32_t lFormatId, QString& sTextOut);
  /// In the system's code page, with a terminator; false for an empty text.
  bool SetTextData(std::int32_t lFormatId, const QString& sText);
  /// Names with indices from 1, each of at most 259 characters.
  bool GetFileList(StringArray& sFiles, std::int32_t& iFileCount);
  bool SetFileList(const StringArray& sFiles);

 private:
  bool ClipboardNotOpen() const;
  QString DropFileName(MemoryHandle block, std::int32_t number, std::vector<char16_t>& buffer);
  void AppendCodes(std::vector<std::uint8_t>& bytes, const QString& text) const;

  ClipboardFunctions& m_platform;
  ClipboardAccess& m_access;
  std::vector<std::int32_t> m_lFormatIds;
  std::vector<QString> m_sFormatNames;
  std::int32_t m_lFormatCount = 0;
  bool m_bOpen = false;
  WindowHandle m_hWndOwner = 0;
};

}  // namespace snipdeck

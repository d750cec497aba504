#include "clipformats/custom_clipboard.h"

#include <algorithm>
#include <cstring>

#include "clipformats/format_names.h"

namespace snipdeck {

namespace {

constexpr int kLongestName = 255;
constexpr std::uint32_t kPathBuffer = 260;
constexpr int kMaxByte = 255;
constexpr std::size_t kDropHeaderSize = 20;

}  // namespace

cCustomClipboard::cCustomClipboard(ClipboardFunctions& platform, ClipboardAccess& access)
    : m_platform(platform), m_access(access) {}

cCustomClipboard::~cCustomClipboard() {
  ClipboardClose();
}

bool cCustomClipboard::ClipboardOpen(WindowHandle hwndOwner) {
  m_bOpen = m_platform.OpenClipboard(hwndOwner);
  m_hWndOwner = m_bOpen ? hwndOwner : 0;
  return m_bOpen;
}

void cCustomClipboard::ClipboardClose() {
  if (!m_bOpen) return;
  m_platform.CloseClipboard();
  m_bOpen = false;
  m_hWndOwner = 0;
}

bool cCustomClipboard::ClipboardNotOpen() const {
  if (m_bOpen && m_hWndOwner != 0) return false;
  throw ClipboardNotOpenError();
}

void cCustomClipboard::ClearClipboard() {
  ClipboardNotOpen();
  m_platform.EmptyClipboard();
}

std::int16_t cCustomClipboard::FormatCount() {
  return static_cast<std::int16_t>(std::min<int>(m_platform.CountClipboardFormats(), INT16_MAX));
}

std::int32_t cCustomClipboard::GetCurrentFormats(WindowHandle hwndOwner) {
  m_lFormatIds.clear();
  m_sFormatNames.clear();
  m_lFormatCount = 0;
  if (ClipboardOpen(hwndOwner)) {
    std::int32_t format = 0;
    while ((format = m_platform.EnumClipboardFormats(format)) != 0) {
      ++m_lFormatCount;
      m_lFormatIds.push_back(format);
      m_sFormatNames.push_back(FormatName(format));
    }
  }
  ClipboardClose();
  return m_lFormatCount;
}

std::int32_t cCustomClipboard::GetCurrentFormatID(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > m_lFormatCount) throw IndexOutOfRange();
  return m_lFormatIds[static_cast<std::size_t>(lIndex - 1)];
}

QString cCustomClipboard::GetCurrentFormatName(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > m_lFormatCount) throw IndexOutOfRange();
  return m_sFormatNames[static_cast<std::size_t>(lIndex - 1)];
}

bool cCustomClipboard::HasCurrentFormat(std::int32_t lFormatId) const {
  return std::find(m_lFormatIds.begin(), m_lFormatIds.end(), lFormatId) != m_lFormatIds.end();
}

QString cCustomClipboard::FormatName(std::int32_t lFormatId) {
  if (const auto standard = StandardFormatName(lFormatId)) return *standard;
  return m_platform.RegisteredName(lFormatId, kLongestName);
}

std::int32_t cCustomClipboard::FormatIDForName(WindowHandle hwndOwner, const QString& sName) {
  GetCurrentFormats(hwndOwner);
  const auto found = std::find(m_sFormatNames.begin(), m_sFormatNames.end(), sName);
  if (found == m_sFormatNames.end()) return 0;
  return m_lFormatIds[static_cast<std::size_t>(found - m_sFormatNames.begin())];
}

bool cCustomClipboard::IsDataAvailableForFormatName(WindowHandle hwndOwner, const QString& sFormatName) {
  const std::int32_t format = FormatIDForName(hwndOwner, sFormatName);
  return format > 0 && m_platform.IsClipboardFormatAvailable(format);
}

bool cCustomClipboard::IsDataAvailableForFormat(std::int32_t lFormatId) {
  return m_platform.IsClipboardFormatAvailable(lFormatId);
}

std::int32_t cCustomClipboard::AddFormat(const QString& sName) {
  const std::int32_t format = m_platform.RegisterFormat(sName);
  return format > kFirstRegisteredFormat ? format : 0;
}

MemoryHandle cCustomClipboard::GetClipboardMemoryHandle(std::int32_t lFormatId) {
  ClipboardNotOpen();
  return IsDataAvailableForFormat(lFormatId) ? m_platform.GetClipboardData(lFormatId) : 0;
}

bool cCustomClipboard::SetClipboardMemoryHandle(std::int32_t lFormatId, MemoryHandle hMem) {
  return m_platform.SetClipboardData(lFormatId, hMem);
}

bool cCustomClipboard::GetBinaryData(std::int32_t lFormatId, ByteArray& bData) {
  bData = ByteArray();
  const MemoryHandle block = GetClipboardMemoryHandle(lFormatId);
  if (block == 0) return false;
  const std::size_t size = m_platform.BlockSize(block);
  if (const char* address = m_platform.LockBlock(block); address && size > 0) {
    bData = ByteArray(0, std::vector<std::uint8_t>(address, address + size));
  }
  m_platform.UnlockBlock(block);
  return !bData.IsEmpty();
}

bool cCustomClipboard::SetBinaryData(std::int32_t lFormatId, const ByteArray& bData) {
  ClipboardNotOpen();
  const auto size = static_cast<std::size_t>(bData.UpperBound() - bData.LowerBound() + 1);
  const MemoryHandle block = m_platform.AllocateBlock(kSharedBlock, size);
  if (block == 0) return false;
  if (char* address = m_platform.LockBlock(block)) std::memcpy(address, bData.Entries().data(), size);
  m_platform.UnlockBlock(block);
  return SetClipboardMemoryHandle(lFormatId, block);
}

bool cCustomClipboard::GetTextData(std::int32_t lFormatId, QString& sTextOut) {
  if (lFormatId == kFormatText || lFormatId == kFormatUnicodeText) {
    // The simple access opens the clipboard itself.
    const WindowHandle owner = m_bOpen ? m_hWndOwner : 0;
    ClipboardClose();
    const Result<QString> text = m_access.Text();
    sTextOut = text ? text.Value() : QString();
    if (owner != 0) ClipboardOpen(owner);
    return true;
  }
  ByteArray bytes;
  if (!GetBinaryData(lFormatId, bytes)) return false;
  sTextOut = m_platform.TextFromCodePage(bytes.Entries());
  return true;
}

bool cCustomClipboard::SetTextData(std::int32_t lFormatId, const QString& sText) {
  if (sText.isEmpty()) return false;
  std::vector<std::uint8_t> bytes;
  for (const QChar character : sText) {
    const int code = m_platform.CharacterCode(character.unicode());
    if (code < 0 || code > kMaxByte) throw CharacterOverflow();
    bytes.push_back(static_cast<std::uint8_t>(code));
  }
  bytes.push_back(0);
  return SetBinaryData(lFormatId, ByteArray(0, std::move(bytes)));
}

bool cCustomClipboard::GetFileList(StringArray& sFiles, std::int32_t& iFileCount) {
  const MemoryHandle block = GetClipboardMemoryHandle(kFormatFileList);
  if (block == 0) return false;
  iFileCount = static_cast<std::int32_t>(m_platform.QueryDropFile(block, kCountOfDropFiles, nullptr, 0));
  if (iFileCount < 1) return false;
  std::vector<char16_t> buffer(kPathBuffer, u'\0');
  std::vector<QString> names;
  for (std::int32_t i = 0; i < iFileCount; ++i) names.push_back(DropFileName(block, i, buffer));
  sFiles = StringArray(1, std::move(names));
  return true;
}

QString cCustomClipboard::DropFileName(MemoryHandle block, std::int32_t number, std::vector<char16_t>& buffer) {
  m_platform.QueryDropFile(block, static_cast<std::uint32_t>(number), buffer.data(), kPathBuffer);
  const auto end = std::find(buffer.begin(), buffer.end(), u'\0');
  return QString::fromUtf16(buffer.data(), end - buffer.begin());
}

bool cCustomClipboard::SetFileList(const StringArray& sFiles) {
  ClipboardNotOpen();
  std::vector<std::uint8_t> bytes(kDropHeaderSize, 0);
  bytes[0] = static_cast<std::uint8_t>(kDropHeaderSize);
  for (std::int32_t i = sFiles.LowerBound(); i <= sFiles.UpperBound(); ++i) AppendCodes(bytes, sFiles.At(i));
  bytes.push_back(0);
  return SetBinaryData(kFormatFileList, ByteArray(0, std::move(bytes)));
}

void cCustomClipboard::AppendCodes(std::vector<std::uint8_t>& bytes, const QString& text) const {
  for (const QChar character : text) {
    const int code = m_platform.CharacterCode(character.unicode());
    bytes.push_back(static_cast<std::uint8_t>(code > kMaxByte ? '?' : code));
  }
  bytes.push_back(0);
}

}  // namespace snipdeck

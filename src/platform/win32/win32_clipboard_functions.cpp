#include "platform/win32/win32_clipboard_functions.h"

#include <vector>
#include <windows.h>

namespace snipdeck {

namespace {

HGLOBAL GlobalOf(MemoryHandle block) {
  return reinterpret_cast<HGLOBAL>(block);
}

/// Formats 2, 3, 9 and 14 are graphics objects, not blocks, and asking for their size would end badly.
bool IsBlock(ClipboardFormat format) {
  return format != CF_BITMAP && format != CF_METAFILEPICT && format != CF_PALETTE && format != CF_ENHMETAFILE;
}

}  // namespace

bool Win32ClipboardFunctions::OpenClipboard(WindowHandle owner) {
  if (::OpenClipboard(reinterpret_cast<HWND>(owner))) return true;
  m_failure = qt_error_string(static_cast<int>(::GetLastError()));
  return false;
}

void Win32ClipboardFunctions::CloseClipboard() {
  ::CloseClipboard();
}

bool Win32ClipboardFunctions::EmptyClipboard() {
  return ::EmptyClipboard() != FALSE;
}

int Win32ClipboardFunctions::CountClipboardFormats() {
  return ::CountClipboardFormats();
}

ClipboardFormat Win32ClipboardFunctions::EnumClipboardFormats(ClipboardFormat previous) {
  if (previous == 0) m_failure.clear();
  return static_cast<ClipboardFormat>(::EnumClipboardFormats(static_cast<UINT>(previous)));
}

bool Win32ClipboardFunctions::IsClipboardFormatAvailable(ClipboardFormat format) {
  return ::IsClipboardFormatAvailable(static_cast<UINT>(format)) != FALSE;
}

MemoryHandle Win32ClipboardFunctions::GetClipboardData(ClipboardFormat format) {
  m_failure = QStringLiteral("it is no block of memory");
  if (!IsBlock(format)) return 0;
  const HANDLE block = ::GetClipboardData(static_cast<UINT>(format));
  m_failure = block ? QString() : qt_error_string(static_cast<int>(::GetLastError()));
  return reinterpret_cast<MemoryHandle>(block);
}

bool Win32ClipboardFunctions::SetClipboardData(ClipboardFormat format, MemoryHandle block) {
  if (IsBlock(format) && ::SetClipboardData(static_cast<UINT>(format), GlobalOf(block))) return true;
  ::GlobalFree(GlobalOf(block));
  return false;
}

QString Win32ClipboardFunctions::RegisteredName(ClipboardFormat format, int limit) {
  std::vector<wchar_t> buffer(static_cast<std::size_t>(limit) + 1);
  const int length = ::GetClipboardFormatNameW(static_cast<UINT>(format), buffer.data(), limit + 1);
  return QString::fromWCharArray(buffer.data(), length);
}

ClipboardFormat Win32ClipboardFunctions::RegisterFormat(const QString& name) {
  return static_cast<ClipboardFormat>(::RegisterClipboardFormatW(reinterpret_cast<const wchar_t*>(name.utf16())));
}

MemoryHandle Win32ClipboardFunctions::AllocateBlock(std::uint32_t flags, std::size_t size) {
  return reinterpret_cast<MemoryHandle>(::GlobalAlloc(flags, size));
}

char* Win32ClipboardFunctions::LockBlock(MemoryHandle block) {
  return static_cast<char*>(::GlobalLock(GlobalOf(block)));
}

void Win32ClipboardFunctions::UnlockBlock(MemoryHandle block) {
  ::GlobalUnlock(GlobalOf(block));
}

std::size_t Win32ClipboardFunctions::BlockSize(MemoryHandle block) {
  return ::GlobalSize(GlobalOf(block));
}

std::uint32_t Win32ClipboardFunctions::QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer,
                                                     std::uint32_t size) {
  return ::DragQueryFileW(reinterpret_cast<HDROP>(block), index, reinterpret_cast<wchar_t*>(buffer), size);
}

int Win32ClipboardFunctions::CharacterCode(char16_t character) const {
  const auto wide = static_cast<wchar_t>(character);
  char code[4] = {};
  const int length = ::WideCharToMultiByte(CP_ACP, 0, &wide, 1, code, sizeof code, nullptr, nullptr);
  const auto byte = [&code](int at) { return static_cast<int>(static_cast<unsigned char>(code[at])); };
  if (length == 1) return byte(0);
  return length == 2 ? byte(0) << 8 | byte(1) : '?';
}

QString Win32ClipboardFunctions::TextFromCodePage(QByteArrayView bytes) const {
  const int size = static_cast<int>(bytes.size());
  if (size == 0) return {};
  const int length = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  std::vector<wchar_t> text(static_cast<std::size_t>(length));
  ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length);
  return QString::fromWCharArray(text.data(), length);
}

}  // namespace snipdeck

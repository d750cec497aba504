#include "platform/x11/x11_clipboard_functions.h"

#include <algorithm>

#include "platform/x11/event_pause.h"
#include "platform/x11/format_blocks.h"
#include "platform/x11/target_content.h"
#include "richtext/text/text_decoder.h"

namespace snipdeck {

namespace {

template <typename Formats>
bool Contains(const Formats& formats, ClipboardFormat format) {
  return std::find(formats.begin(), formats.end(), format) != formats.end();
}

QByteArray WithoutTerminator(QByteArray bytes) {
  while (bytes.endsWith('\0')) bytes.chop(1);
  return bytes;
}

OfferedData OffersOfPicture(const QByteArray& block) {
  const QByteArray bmp = BmpOfDib(block);
  if (bmp.isEmpty()) return {};
  return {{"image/bmp", bmp}};
}

OfferedData OffersOfFileList(const QByteArray& block) {
  const QStringList names = NamesOfDropFiles(block);
  if (names.isEmpty()) return {};
  return {{kUriListTarget, UriListOf(names)}};
}

}  // namespace

bool X11ClipboardFunctions::OpenClipboard(WindowHandle owner) {
  if (m_isOpen && owner != m_owner) {
    m_failure = QStringLiteral("another window uses the clipboard");
    return false;
  }
  m_isOpen = true;
  m_owner = owner;
  return true;
}

void X11ClipboardFunctions::CloseClipboard() {
  if (!m_isOpen) return;
  const OfferedData offers = PendingOffers();
  if (!offers.empty()) {
    m_isEmptied ? m_contents.Replace(offers) : m_contents.Add(offers);
  } else if (m_isEmptied) {
    m_contents.Clear();
  }
  m_pending.clear();
  m_listed.clear();
  m_memory.FreeAll();
  m_dropBlock = 0;
  m_dropNames.clear();
  m_isEmptied = false;
  m_isOpen = false;
}

bool X11ClipboardFunctions::EmptyClipboard() {
  if (!m_isOpen) return false;
  m_isEmptied = true;
  m_pending.clear();
  return true;
}

std::vector<ClipboardFormat> X11ClipboardFunctions::Formats() {
  std::vector<ClipboardFormat> formats;
  for (const auto& [format, block] : m_pending) formats.push_back(format);
  if (m_isEmptied) return formats;
  for (const ClipboardFormat format : m_formats.FormatsOf(m_contents.Targets())) {
    if (!Contains(formats, format)) formats.push_back(format);
  }
  return formats;
}

int X11ClipboardFunctions::CountClipboardFormats() {
  return static_cast<int>(Formats().size());
}

void X11ClipboardFunctions::BeginList() {
  m_listed = Formats();
  const bool isUnknown = m_listed.empty() && !m_isEmptied && m_contents.OwnerIsSilent();
  m_failure = isUnknown ? QStringLiteral("the owner does not answer") : QString();
}

ClipboardFormat X11ClipboardFunctions::EnumClipboardFormats(ClipboardFormat previous) {
  if (!m_isOpen) return 0;
  if (previous == 0) BeginList();
  auto next = m_listed.begin();
  if (previous != 0) {
    next = std::find(m_listed.begin(), m_listed.end(), previous);
    if (next != m_listed.end()) ++next;
  }
  return next == m_listed.end() ? 0 : *next;
}

bool X11ClipboardFunctions::IsClipboardFormatAvailable(ClipboardFormat format) {
  return Contains(Formats(), format);
}

MemoryHandle X11ClipboardFunctions::GetClipboardData(ClipboardFormat format) {
  m_failure = QStringLiteral("it is not there");
  if (!m_isOpen) return 0;
  for (const auto& [pending, block] : m_pending) {
    if (pending == format) return Adopt(block);
  }
  if (m_isEmptied) return 0;
  const QByteArray block = ReadBlock(format);
  return block.isEmpty() ? 0 : Adopt(block);
}

MemoryHandle X11ClipboardFunctions::Adopt(const QByteArray& block) {
  m_failure.clear();
  return m_memory.Adopt(block);
}

QByteArray X11ClipboardFunctions::ReadBlock(ClipboardFormat format) {
  for (const QByteArray& target : m_formats.TargetsFor(format, m_contents.Targets())) {
    const Result<QByteArray> bytes = m_contents.Read(target);
    if (bytes) {
      const QByteArray block = BlockOf(format, target, bytes.Value());
      if (!block.isEmpty()) return block;
    }
    m_failure = bytes ? QString::fromLatin1(target + ": there is nothing in it that can be used") : bytes.Error().text;
  }
  return {};
}

QByteArray X11ClipboardFunctions::BlockOf(ClipboardFormat format, const QByteArray& target,
                                          const QByteArray& bytes) const {
  switch (format) {
    case kFormatText:
      return CodePageTextBlock(DecodeText(target, bytes));
    case kFormatUnicodeText:
      return UnicodeTextBlock(DecodeText(target, bytes));
    case kFormatBitmap:
    case kFormatDib:
      return ComputeAside([&] { return DibBlock(DecodePicture(target, bytes)); });
    case kFormatFileList:
      return DropFilesBlock(DecodeUriList(bytes));
    default:
      // text/richtext may also be a mail format of the same name.
      return format == m_formats.RichText() && !LooksLikeRtf(bytes) ? QByteArray() : bytes;
  }
}

bool X11ClipboardFunctions::SetClipboardData(ClipboardFormat format, MemoryHandle block) {
  const bool isBlock = m_memory.Contains(block);
  const QByteArray bytes = m_memory.Take(block);
  if (!m_isOpen || !isBlock || OffersOf(format, bytes).empty()) return false;
  std::erase_if(m_pending, [format](const auto& pending) { return pending.first == format; });
  m_pending.emplace_back(format, bytes);
  return true;
}

OfferedData X11ClipboardFunctions::OffersOf(ClipboardFormat format, const QByteArray& block) const {
  switch (format) {
    case kFormatText:
      return OffersOfText(TextOfCodePageBlock(block));
    case kFormatUnicodeText:
      return OffersOfText(TextOfUnicodeBlock(block));
    case kFormatBitmap:
    case kFormatDib:
      return OffersOfPicture(block);
    case kFormatFileList:
      return OffersOfFileList(block);
    default:
      break;
  }
  if (format == m_formats.RichText()) return OffersOfRtf(WithoutTerminator(block));
  const QByteArray name = m_formats.NameOf(format);
  return name.isEmpty() ? OfferedData() : OfferedData{{name, block}};
}

OfferedData X11ClipboardFunctions::PendingOffers() const {
  OfferedData all;
  // Unicode text says more than text in a code page.
  for (const bool unicodeFirst : {true, false}) {
    for (const auto& [format, block] : m_pending) {
      if ((format == kFormatUnicodeText) != unicodeFirst) continue;
      for (auto& offer : OffersOf(format, block)) {
        const bool isThere =
            std::any_of(all.begin(), all.end(), [&](const auto& other) { return other.first == offer.first; });
        if (!isThere) all.push_back(std::move(offer));
      }
    }
  }
  return all;
}

QString X11ClipboardFunctions::RegisteredName(ClipboardFormat format, int limit) {
  return QString::fromUtf8(m_formats.NameOf(format)).left(limit);
}

ClipboardFormat X11ClipboardFunctions::RegisterFormat(const QString& name) {
  return m_formats.Register(name.toUtf8());
}

MemoryHandle X11ClipboardFunctions::AllocateBlock(std::uint32_t, std::size_t size) {
  return m_memory.Allocate(size);
}

std::uint32_t X11ClipboardFunctions::QueryDropFile(MemoryHandle block, std::uint32_t index, char16_t* buffer,
                                                   std::uint32_t size) {
  const QStringList& names = DropNames(block);
  if (index == kCountOfDropFiles) return static_cast<std::uint32_t>(names.size());
  if (index >= static_cast<std::uint32_t>(names.size()) || size == 0) return 0;
  const QString name = names[static_cast<qsizetype>(index)].left(static_cast<qsizetype>(size) - 1);
  std::copy_n(name.utf16(), name.size() + 1, buffer);
  return static_cast<std::uint32_t>(name.size());
}

const QStringList& X11ClipboardFunctions::DropNames(MemoryHandle block) {
  if (block != m_dropBlock) {
    m_dropBlock = block;
    m_dropNames = NamesOfDropFiles(m_memory.Bytes(block));
  }
  return m_dropNames;
}

int X11ClipboardFunctions::CharacterCode(char16_t character) const {
  return CodeIn1252(character);
}

QString X11ClipboardFunctions::TextFromCodePage(QByteArrayView bytes) const {
  return DecodeWindows1252(bytes);
}

}  // namespace snipdeck

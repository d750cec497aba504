#include "platform/x11/format_table.h"

#include <algorithm>

#include <QSet>

#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr qsizetype kLongestName = 255;
constexpr ClipboardFormat kLastRegisteredFormat = 0xFFFF;

bool Contains(std::span<const char* const> names, const QByteArray& name) {
  return std::any_of(names.begin(), names.end(), [&](const char* other) { return name == other; });
}

}  // namespace

std::span<const char* const> TargetsOfStandardFormat(ClipboardFormat format) {
  static constexpr const char* uriList[] = {kUriListTarget};
  switch (format) {
    case kFormatText:
    case kFormatUnicodeText:
      return TextTargets();
    case kFormatBitmap:
    case kFormatDib:
      return ImageTargets();
    case kFormatFileList:
      return uriList;
    default:
      return {};
  }
}

FormatTable::FormatTable() : m_richText(Register(kRichTextFormatName)) {}

ClipboardFormat FormatTable::Register(const QByteArray& name) {
  if (name.isEmpty() || name.size() > kLongestName) return 0;
  if (const auto known = m_numbers.constFind(name); known != m_numbers.cend()) return *known;
  const auto format = static_cast<ClipboardFormat>(kFirstRegisteredFormat + 1 + static_cast<int>(m_names.size()));
  if (format > kLastRegisteredFormat) return 0;
  m_names.push_back(name);
  m_numbers.insert(name, format);
  return format;
}

QByteArray FormatTable::NameOf(ClipboardFormat format) const {
  const auto index = static_cast<qint64>(format) - kFirstRegisteredFormat - 1;
  return index >= 0 && index < static_cast<qint64>(m_names.size()) ? m_names[static_cast<size_t>(index)] : QByteArray();
}

std::vector<ClipboardFormat> FormatTable::FormatsOf(const QByteArray& target) {
  if (Contains(TextTargets(), target)) return {kFormatUnicodeText, kFormatText};
  if (Contains(ImageTargets(), target)) return {kFormatDib, kFormatBitmap};
  if (target == kUriListTarget) return {kFormatFileList};
  return {Register(Contains(RichTextTargets(), target) ? kRichTextFormatName : target)};
}

std::vector<ClipboardFormat> FormatTable::FormatsOf(std::span<const QByteArray> targets) {
  std::vector<ClipboardFormat> formats;
  QSet<ClipboardFormat> seen{0};
  for (const QByteArray& target : targets) {
    for (const ClipboardFormat format : FormatsOf(target)) {
      if (seen.contains(format)) continue;
      seen.insert(format);
      formats.push_back(format);
    }
  }
  return formats;
}

std::vector<QByteArray> FormatTable::TargetsFor(ClipboardFormat format, std::span<const QByteArray> targets) const {
  const auto known = format == m_richText ? RichTextTargets() : TargetsOfStandardFormat(format);
  std::vector<QByteArray> found;
  for (const char* name : known) {
    if (std::find(targets.begin(), targets.end(), name) != targets.end()) found.emplace_back(name);
  }
  if (!known.empty()) return found;
  const QByteArray name = NameOf(format);
  if (!name.isEmpty() && std::find(targets.begin(), targets.end(), name) != targets.end()) found.push_back(name);
  return found;
}

}  // namespace snipdeck

#pragma once

#include <span>
#include <vector>

#include <QByteArray>
#include <QHash>

#include "platform/clipboard_formats.h"

namespace snipdeck {

/// The name under which rich text is registered as a format.
inline constexpr char kRichTextFormatName[] = "Rich Text Format";

/// Which clipboard format a target is. Text targets are formats 13 and 1, images 8 and 2, lists of addresses 15; all
/// names of rich text are one registered format, and any other target is a registered format under its own name. A name
/// keeps its number for as long as the table lives.
class FormatTable {
 public:
  FormatTable();

  /// From 0xC001 up; 0 for an empty name, one of more than 255 bytes, and when all numbers are taken.
  ClipboardFormat Register(const QByteArray& name);
  /// Empty for a number that was not registered.
  QByteArray NameOf(ClipboardFormat format) const;
  ClipboardFormat RichText() const { return m_richText; }

  /// The formats of the targets, in their order, each once.
  std::vector<ClipboardFormat> FormatsOf(std::span<const QByteArray> targets);
  /// Those of the targets that carry the format, the preferred one first.
  std::vector<QByteArray> TargetsFor(ClipboardFormat format, std::span<const QByteArray> targets) const;

 private:
  std::vector<ClipboardFormat> FormatsOf(const QByteArray& target);

  QHash<QByteArray, ClipboardFormat> m_numbers;
  std::vector<QByteArray> m_names;
  ClipboardFormat m_richText;
};

/// The known names of a standard format's targets, the preferred one first; none for any other number.
std::span<const char* const> TargetsOfStandardFormat(ClipboardFormat format);

}  // namespace snipdeck

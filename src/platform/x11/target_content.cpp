#include "platform/x11/target_content.h"

#include <QUrl>

namespace snipdeck {

namespace {

constexpr char kPasswordManagerHint[] = "x-kde-passwordManagerHint";
constexpr char kMayEnterHistory[] = "CanIncludeInClipboardHistory";

}  // namespace

std::span<const char* const> RichTextTargets() {
  static constexpr const char* names[] = {"text/rtf", "application/rtf", "text/richtext", "Rich Text Format"};
  return names;
}

std::span<const char* const> TextTargets() {
  static constexpr const char* names[] = {
      "UTF8_STRING", "text/plain;charset=utf-8", "text/plain;charset=UTF-8", "text/plain", "STRING", "TEXT"};
  return names;
}

std::span<const char* const> ImageTargets() {
  static constexpr const char* names[] = {"image/png",     "image/jpeg",  "image/bmp",  "image/x-bmp",
                                          "image/tiff",    "image/gif",   "image/webp", "image/x-icon",
                                          "image/svg+xml", "image/x-emf", "PIXMAP",     "BITMAP"};
  return names;
}

std::span<const char* const> FileManagerTargets() {
  static constexpr const char* names[] = {"x-special/gnome-copied-files", "application/x-kde-cutselection"};
  return names;
}

std::span<const char* const> OtherReadTargets() {
  static constexpr const char* names[] = {kHtmlTarget, kUriListTarget};
  return names;
}

std::span<const char* const> ProtocolTargets() {
  static constexpr const char* names[] = {"TARGETS", "TIMESTAMP",        "MULTIPLE",       "SAVE_TARGETS",
                                          "DELETE",  "INSERT_SELECTION", "INSERT_PROPERTY"};
  return names;
}

std::span<const char* const> SecrecyTargets() {
  static constexpr const char* names[] = {kPasswordManagerHint, "Clipboard Viewer Ignore",
                                          "ExcludeClipboardContentFromMonitorProcessing", kMayEnterHistory};
  return names;
}

bool MeansSecret(const QByteArray& target, const QByteArray& value) {
  if (target == kPasswordManagerHint) return value.startsWith("secret");
  // A number of four bytes; the other names say it by being there.
  if (target == kMayEnterHistory) return value.count('\0') == value.size();
  return true;
}

bool LooksLikeRtf(const QByteArray& bytes) {
  return bytes.startsWith("{\\rtf");
}

QString DecodeText(const QByteArray& target, const QByteArray& bytes) {
  QByteArray trimmed = bytes;
  while (trimmed.endsWith('\0')) trimmed.chop(1);
  return target == "STRING" ? QString::fromLatin1(trimmed) : QString::fromUtf8(trimmed);
}

QStringList DecodeUriList(const QByteArray& bytes) {
  QStringList paths;
  for (const QByteArray& rawLine : bytes.split('\n')) {
    const QByteArray line = rawLine.trimmed();
    if (line.isEmpty() || line.startsWith('#') || line.startsWith('\0')) continue;
    const QUrl url = QUrl::fromEncoded(line);
    paths.append(url.isLocalFile() ? url.toLocalFile() : QString::fromUtf8(line));
  }
  return paths;
}

}  // namespace snipdeck

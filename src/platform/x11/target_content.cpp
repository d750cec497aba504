#include "platform/x11/target_content.h"

#include <QMimeData>
#include <QUrl>

namespace snipdeck {

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

ClipboardSnapshot SnapshotOfMimeData(const QMimeData& data) {
  ClipboardSnapshot snapshot;
  for (const char* target : RichTextTargets()) {
    const QByteArray bytes = data.data(QString::fromLatin1(target));
    if (!LooksLikeRtf(bytes)) continue;
    snapshot.hasRichText = true;
    snapshot.richText = {RichTextPayload::Encoding::Rtf, bytes};
    break;
  }
  if (!snapshot.hasRichText && data.hasHtml()) {
    snapshot.hasRichText = true;
    snapshot.richText = {RichTextPayload::Encoding::Html, data.html().toUtf8()};
  }
  snapshot.hasText = data.hasText();
  snapshot.text = data.text();
  snapshot.hasBitmap = data.hasImage();
  for (const QUrl& url : data.urls()) snapshot.files.append(url.isLocalFile() ? url.toLocalFile() : url.toString());
  snapshot.hasFileList = !snapshot.files.isEmpty();
  return snapshot;
}

}  // namespace snipdeck

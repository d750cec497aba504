#include "platform/x11/own_contents.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include "platform/x11/target_content.h"

namespace snipdeck {

namespace {

constexpr char kPlainText[] = "text/plain";
constexpr char kQtImage[] = "application/x-qt-image";
constexpr char kPng[] = "image/png";

QByteArray PngOf(const QMimeData& data) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  qvariant_cast<QImage>(data.imageData()).save(&buffer, "PNG");
  return bytes;
}

bool IsOneOf(const QByteArray& name, std::span<const char* const> names) {
  return std::any_of(names.begin(), names.end(), [&](const char* other) { return name == other; });
}

void AddOnce(std::vector<QByteArray>& names, const QByteArray& name) {
  if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

}  // namespace

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
  snapshot.hasBitmap = data.hasImage() || data.hasFormat(QString::fromLatin1(kPng));
  for (const QUrl& url : data.urls()) snapshot.files.append(url.isLocalFile() ? url.toLocalFile() : url.toString());
  snapshot.hasFileList = !snapshot.files.isEmpty();
  return snapshot;
}

std::vector<QByteArray> TargetsOfMimeData(const QMimeData& data) {
  std::vector<QByteArray> targets;
  for (const QString& format : data.formats()) {
    const QByteArray name = format.toLatin1();
    AddOnce(targets, name == kQtImage ? QByteArray(kPng) : name);
    if (name != kPlainText) continue;
    for (const char* alias : {"UTF8_STRING", "STRING", "TEXT"}) AddOnce(targets, alias);
  }
  return targets;
}

QByteArray BytesOfMimeData(const QMimeData& data, const QByteArray& target) {
  const QString format = QString::fromLatin1(target);
  if (target == "STRING") return data.text().toLatin1();
  if (!data.hasFormat(format) && IsOneOf(target, TextTargets())) return data.text().toUtf8();
  if (target == kPng && !data.hasFormat(format)) return PngOf(data);
  return data.data(format);
}

bool OwnsClipboard() {
  return QGuiApplication::clipboard()->ownsClipboard();
}

std::uint32_t OwnClient() {
  const auto* native = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return native ? xcb_get_setup(native->connection())->resource_id_base : 0;
}

bool IsOwnWindow(xcb_window_t window) {
  const auto* native = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!native || window == XCB_WINDOW_NONE) return false;
  return (window & ~xcb_get_setup(native->connection())->resource_id_mask) == OwnClient();
}

const QMimeData* OwnMimeData() {
  return OwnsClipboard() ? QGuiApplication::clipboard()->mimeData() : nullptr;
}

}  // namespace snipdeck

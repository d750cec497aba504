#pragma once

#include <span>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "platform/clipboard.h"

class QMimeData;

namespace snipdeck {

/// Target names by meaning, the preferred one first.
std::span<const char* const> RichTextTargets();
std::span<const char* const> TextTargets();
std::span<const char* const> ImageTargets();
/// Names by which a file manager marks a copy of files; its text is then only another form of the list.
std::span<const char* const> FileManagerTargets();
inline constexpr char kHtmlTarget[] = "text/html";
inline constexpr char kUriListTarget[] = "text/uri-list";
/// Password managers set it to "secret".
inline constexpr char kSecrecyTarget[] = "x-kde-passwordManagerHint";

/// True if the bytes begin as RTF does; text/richtext may also be a mail format of the same name.
bool LooksLikeRtf(const QByteArray& bytes);
/// Text of a target: Latin-1 for STRING, otherwise UTF-8; terminators are cut off.
QString DecodeText(const QByteArray& target, const QByteArray& bytes);
/// The paths of local files and the addresses of others, in the order of the list.
QStringList DecodeUriList(const QByteArray& bytes);

/// What this program itself put on the clipboard, read without the X server.
ClipboardSnapshot SnapshotOfMimeData(const QMimeData& data);

}  // namespace snipdeck

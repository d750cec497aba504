#pragma once

#include <span>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "platform/clipboard.h"

namespace snipdeck {

/// Target names by meaning, the preferred one first.
std::span<const char* const> RichTextTargets();
std::span<const char* const> TextTargets();
std::span<const char* const> ImageTargets();
/// Names by which a file manager marks a copy of files; its text is then only another form of the list.
std::span<const char* const> FileManagerTargets();
inline constexpr char kHtmlTarget[] = "text/html";
inline constexpr char kUriListTarget[] = "text/uri-list";
/// The two above.
std::span<const char* const> OtherReadTargets();
/// What every owner answers besides its contents.
std::span<const char* const> ProtocolTargets();

/// Names by which owners ask clipboard programs to leave their contents alone. Some tell it by their value, and one
/// whose value cannot be read counts as told.
std::span<const char* const> SecrecyTargets();
/// Whether the value that came under a name of SecrecyTargets() asks for that.
bool MeansSecret(const QByteArray& target, const QByteArray& value);

/// True if the bytes begin as RTF does; text/richtext may also be a mail format of the same name.
bool LooksLikeRtf(const QByteArray& bytes);
/// Text of a target: Latin-1 for STRING, otherwise UTF-8; terminators are cut off.
QString DecodeText(const QByteArray& target, const QByteArray& bytes);
/// The paths of local files and the addresses of others, in the order of the list.
QStringList DecodeUriList(const QByteArray& bytes);

}  // namespace snipdeck

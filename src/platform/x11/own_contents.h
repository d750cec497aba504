#pragma once

#include <utility>
#include <vector>

#include <QByteArray>

#include <xcb/xcb.h>

#include "platform/clipboard.h"

class QMimeData;

namespace snipdeck {

/// Target names with their bytes, in the order in which they are offered.
using OfferedData = std::vector<std::pair<QByteArray, QByteArray>>;

/// What this program itself put on the clipboard, read without the X server.
ClipboardSnapshot SnapshotOfMimeData(const QMimeData& data);
/// The targets under which Qt offers it to other programs, without those of the protocol.
std::vector<QByteArray> TargetsOfMimeData(const QMimeData& data);
/// The bytes of one of these targets, as another program would get them.
QByteArray BytesOfMimeData(const QMimeData& data, const QByteArray& target);

/// Whether this program owns the clipboard.
bool OwnsClipboard();
/// What the numbers of all windows that Qt made for this program have in common; 0 without an X server.
std::uint32_t OwnClient();
/// Whether the window is one that Qt made for this program.
bool IsOwnWindow(xcb_window_t window);
/// What this program has on the clipboard; null if it does not own it.
const QMimeData* OwnMimeData();

}  // namespace snipdeck

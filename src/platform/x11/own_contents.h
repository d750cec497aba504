#pragma once

#include <utility>
#include <vector>

#include <QByteArray>

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
/// Its contents then; null otherwise.
const QMimeData* OwnMimeData();

}  // namespace snipdeck

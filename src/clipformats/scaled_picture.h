#pragma once

#include <QImage>
#include <QSize>

#include "platform/clipboard_access.h"

class QIODevice;

namespace snipdeck {

/// A picture small enough to be shown.
struct ScaledPicture {
  /// Null if the picture could not be read.
  QImage image;
  /// The size of the whole picture in pixels; empty if it is not known.
  QSize fullSize;
};

/// Reads a picture of the kind that `kind` names, scaled down into `most`, never up. Kinds that can be read in pieces,
/// as PNG with colours of eight bits, never stand in memory in their full size; of the others nothing of more
/// than 128 million pixels is read, which take 512 MB, with colours of sixteen bits 1 GB, until they are scaled. Safe
/// to call in any thread.
ScaledPicture ReadScaled(QIODevice& bytes, const QByteArray& kind, QSize most);

}  // namespace snipdeck

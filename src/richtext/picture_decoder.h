#pragma once

#include "richtext/rtf/rtf_picture.h"

namespace snipdeck {

/// The picture's pixels; null for data that is broken, of a kind that cannot be shown, or of more than `maxPixels`.
/// A metafile that only wraps a bitmap counts as that bitmap.
QImage DecodePicture(const RtfPictureInfo& info, const QByteArray& data, qint64 maxPixels);

}  // namespace snipdeck

#pragma once

#include <functional>

#include <QByteArray>
#include <QString>

#include "platform/result.h"

namespace snipdeck {

/// Turns the bytes of one format of word processors into another with LibreOffice, in a process of its own with a profile
/// of its own, which is thrown away afterwards. `from` and `to` are the ends of file names, as "doc". Fails with
/// Unsupported where LibreOffice is not installed, with TimedOut after two minutes, with Refused when `progress`, which
/// may be empty, returns false, and with Malformed for bytes that LibreOffice cannot read.
Result<QByteArray> ConvertWithOffice(const QByteArray& bytes, const QString& from, const QString& to,
                                     const std::function<bool(double part)>& progress = {});

}  // namespace snipdeck
